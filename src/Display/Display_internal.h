// What graphics start-up, shutdown and menus need of displays.
#pragma once

#include <mtbx/Quickdraw.h>

// Disposes the device, its PixMap and its colour table, and the grey region.
void MTBX_StopDisplays();

// The monitor that a pop-up at this screen point must stay on, in screen coordinates.
RECT MTBX_MonitorRectAtPoint(POINT screenPoint);
