#include <mtbx/Events.h>
