#include <mtbx/Gestalt.h>
