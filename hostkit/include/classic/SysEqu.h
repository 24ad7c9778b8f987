#include <mtbx/LowMem.h>
