#include <mtbx/Folders.h>
