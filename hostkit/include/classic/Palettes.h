#include <mtbx/Palettes.h>
