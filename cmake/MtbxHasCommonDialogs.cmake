# MTBX_HAS_COMMDLG: whether the platform has the common dialogs that the library calls. The layer gets them
# after its dialogs; sources, tests and exports (marked COMMDLG) that need them wait for that.
file(STRINGS "${PROJECT_SOURCE_DIR}/win32/exports.list" layer_calls)
if(WIN32 OR "ChooseColorA" IN_LIST layer_calls)
    set(MTBX_HAS_COMMDLG ON)
else()
    set(MTBX_HAS_COMMDLG OFF)
endif()
