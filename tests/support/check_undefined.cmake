# Holds what a static library asks of others against what is public: the exports of the library and of Win32, and the
# compiler's runtime.
# Arguments: LIBRARY, NAMES (lists of exported names), TOOL (nm).

cmake_policy(SET CMP0057 NEW)
set(public "")
foreach(path IN LISTS NAMES)
    file(STRINGS "${path}" lines REGEX "^[A-Za-z_?]")
    list(TRANSFORM lines REPLACE " .*" "")
    list(APPEND public ${lines})
endforeach()

set(runtime "^(_ZN?K?St|_ZN9__gnu_cxx|_Zn[aw]|_Zd[al]|_ZT[ISV](St|N10__cxxabiv1)|__cxa_|__gxx_|_Unwind_|mem[a-z]+$|str[a-z]+$|abs$")
string(APPEND runtime "|__stack_chk|__dso_handle|_GLOBAL_OFFSET_TABLE_|__mem|__asan|__ubsan|___chkstk|DW.ref)")

execute_process(COMMAND "${TOOL}" "${LIBRARY}" OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[0-9a-f]+ [A-TV-Za-z] [^\n]+" definitions "${output}")
list(TRANSFORM definitions REPLACE "^[0-9a-f]+ . " "")
string(REGEX MATCHALL " [Uw] [^\n]+" uses "${output}")
list(TRANSFORM uses REPLACE "^ . (__imp_)?" "")
list(REMOVE_DUPLICATES uses)

set(hidden "")
foreach(name IN LISTS uses)
    if(NOT name IN_LIST definitions AND NOT name IN_LIST public AND NOT name MATCHES "${runtime}")
        list(APPEND hidden "${name}")
    endif()
endforeach()
list(LENGTH uses count)
if(count LESS 50)
    message(FATAL_ERROR "only ${count} names were found in ${LIBRARY}")
endif()
if(hidden)
    message(FATAL_ERROR "not public: ${hidden}")
endif()
message(STATUS "${count} names, all public")
