#include <mtbx/ToolUtils.h>
