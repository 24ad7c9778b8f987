#include <mtbx/Controls.h>
