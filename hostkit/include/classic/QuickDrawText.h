#include <mtbx/QuickdrawText.h>
