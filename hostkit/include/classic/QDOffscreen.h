#include <mtbx/QDOffscreen.h>
