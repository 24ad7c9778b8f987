#include <mtbx/Script.h>
