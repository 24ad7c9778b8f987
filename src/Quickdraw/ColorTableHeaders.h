// The DIB header that a colour table may carry.
#pragma once

#include <mtbx/Quickdraw.h>

// How a table is used: a number that stands in ctUsage. The numbers from 1 to 3 give it a header.
enum { kNoHeaderUsage = 0, kSystemUsage = 2 };

// Notes the use, and makes or refreshes the header, which sets the table's seed to 0. Without memory the
// table stays without one.
void setColorTableUsage(CTabHandle table, UInt16 usage);
