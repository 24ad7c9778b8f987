#include <mtbx/Dialogs.h>
