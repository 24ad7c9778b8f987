// The recording of a region: points of MoveTo and MacLineTo between OpenRgn and CloseRgn.
#include "GdiGuard_internal.h"
#include "Regions_internal.h"

bool regionRecordingOpen = false;

namespace {

constexpr SInt32 regionRecordingCapacity = 100;

POINT regionRecordingPoints[regionRecordingCapacity];
SInt32 regionRecordingCount = 0;

// Null when the points enclose nothing, without asking GDI: it would refuse as in a shortage.
HRGN recordedPolygon()
{
    constexpr SInt32 fewestPoints = 2;
    return regionRecordingCount < fewestPoints
               ? nullptr
               : MTBX_CreatePolygonRgn(regionRecordingPoints, regionRecordingCount, WINDING);
}

} // namespace

void addRegionRecordingPoint(SInt16 h, SInt16 v)
{
    if (regionRecordingCount < regionRecordingCapacity)
        regionRecordingPoints[regionRecordingCount++] = {h, v};
}

void OpenRgn()
{
    regionRecordingOpen = true;
    regionRecordingCount = 0;
}

void CloseRgn(RgnHandle result)
{
    regionRecordingOpen = false;
    if (!result || !*result)
        return;
    HRGN polygon = recordedPolygon();
    if (polygon)
        replaceNativeRegion(result, polygon);
    else
        SetEmptyRgn(result);
}
