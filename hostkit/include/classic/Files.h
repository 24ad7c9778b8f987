#include <mtbx/Files.h>
