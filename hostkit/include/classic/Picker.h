#include <mtbx/ColorPicker.h>
