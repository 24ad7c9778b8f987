# MTBX_HAS_GDI: whether the platform has the graphics calls that the library makes. On Linux they come
# one after the other; sources, tests and exports (marked GDI) that need them wait for all.
set(MTBX_HAS_GDI ON)
if(NOT WIN32)
    file(STRINGS "${PROJECT_SOURCE_DIR}/win32/exports.list" layer_calls)
    foreach(call CombineRgn CreateBitmapIndirect CreateBrushIndirect CreateCompatibleBitmap CreateCompatibleDC CreateDCA
            CreateDIBSection CreateDIBitmap CreateFontIndirectA CreatePalette CreatePatternBrush CreatePen
            CreatePolygonRgn CreateRoundRectRgn EqualRgn ExtCreatePen ExtCreateRegion GdiFlush GetObjectA GetRegionData
            MessageBoxA RectInRegion)
        if(NOT call IN_LIST layer_calls)
            set(MTBX_HAS_GDI OFF)
        endif()
    endforeach()
endif()
