# MTBX_HAS_GDI: whether the platform has the graphics calls that the library makes; MTBX_HAS_COMMDLG: the
# same for the common dialogs; MTBX_HAS_BOXES: for message boxes. On Linux they come one after the other; sources, tests and exports (marked
# GDI, COMMDLG or BOXES) that need them wait for all.
file(STRINGS "${PROJECT_SOURCE_DIR}/win32/exports.list" layer_calls)

function(mtbx_find_calls result)
    set(has ON)
    if(NOT WIN32)
        foreach(call IN LISTS ARGN)
            if(NOT call IN_LIST layer_calls)
                set(has OFF)
            endif()
        endforeach()
    endif()
    set(${result} ${has} PARENT_SCOPE)
endfunction()

mtbx_find_calls(MTBX_HAS_GDI ClientToScreen CombineRgn CreateBitmapIndirect CreateBrushIndirect
    CreateCompatibleBitmap CreateCompatibleDC CreateDCA CreateDIBSection CreateDIBitmap CreateFontIndirectA
    CreatePalette CreatePatternBrush CreatePen CreatePolygonRgn CreateRoundRectRgn DestroyWindow
    EnumDisplayDevicesA EnumDisplayMonitors EqualRgn ExtCreatePen ExtCreateRegion GdiFlush GetClientRect
    GetClipBox GetCurrentObject GetCursorPos GetDCOrgEx GetDesktopWindow GetMonitorInfoA
    GetNearestPaletteIndex GetObjectA GetPaletteEntries GetRegionData GetStockObject GetSystemMetrics
    GetSystemPaletteEntries GetWindowDC GetWindowPlacement GetWindowRect IntersectRect IsIconic IsWindow
    LPtoDP LoadCursorA MonitorFromPoint MonitorFromRect MonitorFromWindow OffsetRect
    RealizePalette RectInRegion RegisterClipboardFormatA ReleaseDC ScreenToClient SelectClipRgn
    SelectPalette SetBitmapBits SetROP2 SetSystemPaletteUse SystemParametersInfoA UnrealizeObject)
mtbx_find_calls(MTBX_HAS_COMMDLG ChooseColorA GetSystemMetrics SetWindowPos)
mtbx_find_calls(MTBX_HAS_BOXES MessageBoxA)
