#include <mtbx/MacWindows.h>
