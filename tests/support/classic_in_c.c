#include <hostkit/classic.h>
