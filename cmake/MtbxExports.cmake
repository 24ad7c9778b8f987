# Reads the library's list of exports and writes the linker's view of it: a module definition file
# for Windows, a version script for Linux. A line is "name" or "name DATA"; one with another
# word, such as "name COMMDLG", is there only with MTBX_HAS_COMMDLG.

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/exports.list")

function(mtbx_generate_exports list definition_file version_script)
    file(STRINGS "${list}" lines)
    set(definitions "LIBRARY MTBX\nEXPORTS\n")
    set(globals "")
    foreach(line IN LISTS lines)
        if(line MATCHES "^#" OR line STREQUAL "")
            continue()
        endif()
        if(line MATCHES " ([A-Z]+)$" AND NOT CMAKE_MATCH_1 STREQUAL "DATA")
            if(NOT MTBX_HAS_${CMAKE_MATCH_1})
                continue()
            endif()
            string(REGEX REPLACE " .*" "" line "${line}")
        endif()
        string(APPEND definitions "    ${line}\n")
        string(REGEX REPLACE " .*" "" name "${line}")
        string(APPEND globals "        ${name};\n")
    endforeach()
    file(CONFIGURE OUTPUT "${definition_file}" CONTENT "@definitions@" @ONLY)
    file(CONFIGURE OUTPUT "${version_script}" CONTENT "MTBX_1 {\n    global:\n@globals@    local: *;\n};\n" @ONLY)
endfunction()
