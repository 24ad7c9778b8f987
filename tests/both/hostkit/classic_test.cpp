#include "HostKitTest.h"
