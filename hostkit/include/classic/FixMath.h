#include <mtbx/FixMath.h>
