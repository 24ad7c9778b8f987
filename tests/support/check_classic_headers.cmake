# The old names of headers: all of the library's have one, they compile, and where file names have no case they do not
# keep the system's headers of the same names from anybody. Folders of this machine have case, so copies with small
# letters stand for those that have none.
#   HEADERS the folder of the old names, INCLUDE the library's headers, FLAGS for both compilers, C_COMPILER,
#   CXX_COMPILER, WORK a folder to use

file(GLOB published RELATIVE "${INCLUDE}/mtbx" "${INCLUDE}/mtbx/*.h")
list(FILTER published EXCLUDE REGEX "^MTBX")
foreach(name IN LISTS published)
    if(NOT EXISTS "${HEADERS}/${name}")
        message(SEND_ERROR "${HEADERS} has no ${name}, which sources include without a folder")
    endif()
endforeach()

file(REMOVE_RECURSE "${WORK}")
file(GLOB headers RELATIVE "${HEADERS}" "${HEADERS}/*.h")
set(all "")
foreach(name IN LISTS headers)
    string(APPEND all "#include <${name}>\n")
    file(READ "${HEADERS}/${name}" text)
    string(TOLOWER "${name}" small_name)
    string(REGEX REPLACE "[<]${name}[>]" "<${small_name}>" text "${text}")
    file(WRITE "${WORK}/small/${small_name}" "${text}")
endforeach()

function(expect_compiled folder name text)
    file(WRITE "${WORK}/${name}.c" "${text}")
    file(WRITE "${WORK}/${name}.cpp" "${text}")
    foreach(command IN ITEMS "${C_COMPILER};-std=gnu11;${WORK}/${name}.c" "${CXX_COMPILER};-std=c++20;${WORK}/${name}.cpp")
        execute_process(COMMAND ${command} -fsyntax-only -Wall -Wextra -Werror "-I${folder}" ${FLAGS}
            RESULT_VARIABLE result ERROR_VARIABLE errors)
        if(NOT result EQUAL 0)
            message(SEND_ERROR "${text}${errors}")
        endif()
    endforeach()
endfunction()

set(system_uses [[
void *useSystem(HWND native, char *text);
void *useSystem(HWND native, char *text)
{
    ShowWindow(native, strcasecmp(text, "text"));
    return memcpy(text, "text", strlen("text"));
}
]])
set(toolbox_uses [[
OSErr useToolbox(WindowPtr window, char *text);
OSErr useToolbox(WindowPtr window, char *text)
{
    AdjustWindow(window);
    if (!NewHandle(c2pstr(text)[0]))
        return memFullErr;
    return noErr;
}
]])
expect_compiled("${HEADERS}" all "#include <string.h>\n#include <strings.h>\n${all}${system_uses}${toolbox_uses}")

set(system_headers "#include <windows.h>\n#include <memory.h>\n#include <strings.h>\n#include <string.h>\n")
set(number 0)
foreach(first IN ITEMS windows.h string.h shlobj.h mtbx/MacTypes.h)
    math(EXPR number "${number} + 1")
    expect_compiled("${WORK}/small" system_${number}
        "#include <${first}>\n${system_headers}${system_uses}#include <mtbx/MTBX.h>\n${toolbox_uses}")
endforeach()
expect_compiled("${WORK}/small" toolbox "#include <mtbx/MTBXConfig.h>\n#include <strings.h>\n#include <windows.h>
#include <memory.h>\n#include <errors.h>\n#include <aliases.h>\n${toolbox_uses}${system_uses}")
