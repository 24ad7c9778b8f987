#include <mtbx/Pictures.h>
