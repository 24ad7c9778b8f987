#include <mtbx/TextEdit.h>
