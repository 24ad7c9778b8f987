#include <mtbx/Processes.h>
