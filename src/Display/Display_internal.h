// The end of the main device, for MTBX_ShutdownGraf.
#pragma once

// Disposes the device, its PixMap and its colour table, and the grey region.
void MTBX_StopDisplays();
