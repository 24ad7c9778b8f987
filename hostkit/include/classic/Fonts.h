#include <mtbx/Fonts.h>
