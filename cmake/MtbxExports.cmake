# Reads the library's list of exports and writes the linker's view of it: a module definition file
# for Windows, a version script for Linux. A line is "name" or "name DATA"; "name USER32" is a call of the
# system that the library offers under the same name.

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/exports.list")

# forwards: a source for Linux, whose linker knows no forwarded exports. Each is a jump to the layer's function,
# which has the same name and another version.
function(mtbx_generate_exports list definition_file version_script forwards)
    file(STRINGS "${list}" lines)
    set(definitions "LIBRARY MTBX\nEXPORTS\n")
    set(globals "")
    set(jumps "")
    foreach(line IN LISTS lines)
        if(line MATCHES "^#" OR line STREQUAL "")
            continue()
        endif()
        string(REGEX REPLACE " .*" "" name "${line}")
        if(line MATCHES " USER32$")
            set(line "${name}=USER32.${name}")
            string(APPEND jumps "    .symver forwarded_${name}, ${name}@WIN32_1\n    .globl ${name}\n"
                "    .type ${name}, @function\n${name}:\n    jmp *forwarded_${name}@GOTPCREL(%rip)\n"
                "    .size ${name}, .-${name}\n")
        endif()
        string(APPEND definitions "    ${line}\n")
        string(APPEND globals "        ${name};\n")
    endforeach()
    file(CONFIGURE OUTPUT "${definition_file}" CONTENT "@definitions@" @ONLY)
    file(CONFIGURE OUTPUT "${version_script}" CONTENT "MTBX_1 {\n    global:\n@globals@    local: *;\n};\n" @ONLY)
    file(CONFIGURE OUTPUT "${forwards}" @ONLY
        CONTENT "    .text\n@jumps@    .section .note.GNU-stack, \"\", @progbits\n")
endfunction()
