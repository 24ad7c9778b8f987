#include <mtbx/MacMemory.h>
