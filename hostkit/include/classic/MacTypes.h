#include <mtbx/MacTypes.h>
