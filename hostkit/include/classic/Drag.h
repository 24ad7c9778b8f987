#include <mtbx/Drag.h>
