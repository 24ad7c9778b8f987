#include <mtbx/MacErrors.h>
