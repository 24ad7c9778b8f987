#include <mtbx/Displays.h>
