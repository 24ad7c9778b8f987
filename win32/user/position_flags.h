// Bits of WINDOWPOS.flags that the system uses between its own messages.
#pragma once

#define SWP_NOCLIENTSIZE 0x0800
#define SWP_NOCLIENTMOVE 0x1000
#define SWP_STATECHANGED 0x8000
