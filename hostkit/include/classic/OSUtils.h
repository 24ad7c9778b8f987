#include <mtbx/OSUtils.h>
