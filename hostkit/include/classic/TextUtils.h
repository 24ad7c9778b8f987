#include <mtbx/TextUtils.h>
