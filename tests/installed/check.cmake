# Installs the library, moves what was installed, and builds and runs a host against it: with the CMake package, and
# with pkg-config where programs run natively.
#   BUILD the library's build folder, CONFIGURATION its configuration, SOURCES the host's project, WORK a folder to
#   use, FORBIDDEN folders that nothing installed may name, OPTIONS for the host's configuration, EMULATOR runs a
#   program, PKG_CONFIG and the compilers for the other way.

function(run output_variable)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        string(REPLACE ";" " " command "${ARGN}")
        message(FATAL_ERROR "${command}\n${output}${errors}(result ${result})")
    endif()
    set(${output_variable} "${output}" PARENT_SCOPE)
endfunction()

function(expect_greeting greeting)
    run(output ${ARGN})
    string(STRIP "${output}" output)
    if(NOT output STREQUAL greeting)
        message(FATAL_ERROR "${ARGN} printed \"${output}\" instead of \"${greeting}\"")
    endif()
endfunction()

# Nothing may lead back to where the library was built or first installed.
function(expect_relocatable folder)
    file(GLOB_RECURSE files "${folder}/*.cmake" "${folder}/*.pc" "${folder}/*.h")
    foreach(file IN LISTS files)
        file(READ "${file}" text)
        foreach(place IN LISTS FORBIDDEN ITEMS "${WORK}")
            string(FIND "${text}" "${place}" position)
            if(NOT position EQUAL -1)
                message(FATAL_ERROR "${file} names ${place}")
            endif()
        endforeach()
    endforeach()
endfunction()

file(REMOVE_RECURSE "${WORK}")
run(unused "${CMAKE_COMMAND}" --install "${BUILD}" --config "${CONFIGURATION}" --prefix "${WORK}/first")
set(prefix "${WORK}/moved here")
file(RENAME "${WORK}/first" "${prefix}")
expect_relocatable("${prefix}")

run(unused "${CMAKE_COMMAND}" -S "${SOURCES}" -B "${WORK}/host" "-DCMAKE_PREFIX_PATH=${prefix}" ${OPTIONS})
run(unused "${CMAKE_COMMAND}" --build "${WORK}/host" --config "${CONFIGURATION}")
foreach(name IN ITEMS host classic)
    file(GLOB program "${WORK}/host/${name}" "${WORK}/host/${name}.exe")
    expect_greeting("Hello" ${EMULATOR} "${program}")
endforeach()

if(PKG_CONFIG)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/lib/pkgconfig")
    run(flags "${PKG_CONFIG}" --cflags --libs mtbx-hostkit)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    list(APPEND flags "-Wl,-rpath,${prefix}/lib" -Wall -Wextra -Werror -Wno-multichar)
    run(unused "${CXX_COMPILER}" -std=c++20 "${SOURCES}/host.cpp" -o "${WORK}/plain" ${flags})
    expect_greeting("(non)" "${WORK}/plain")

    run(unused "${prefix}/bin/mtbx-classic-source" --long=32 "${SOURCES}/classic.c" "${WORK}/classic.c")
    run(classic_headers "${PKG_CONFIG}" --variable=classicdir mtbx-hostkit)
    separate_arguments(classic_headers UNIX_COMMAND "${classic_headers}")
    run(unused "${C_COMPILER}" -I "${classic_headers}" -include hostkit/classic.h -Wno-pointer-sign
        "${WORK}/classic.c" -o "${WORK}/plain_classic" ${flags})
    expect_greeting("Hello" "${WORK}/plain_classic")
endif()
