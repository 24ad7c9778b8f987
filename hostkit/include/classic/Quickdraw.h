#include <mtbx/Quickdraw.h>
