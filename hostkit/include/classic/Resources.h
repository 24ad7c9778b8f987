#include <mtbx/Resources.h>
