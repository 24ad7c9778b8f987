# mtbx_add_resources(target file.rc): compiles a resource script into a program, for either platform.
#
# Files that the script names are looked for beside it. On Windows the linker takes the compiled resources. On Linux the bytes of the .res file are put into
# the program by a small object that names them to the layer before main.

function(mtbx_add_resources target script)
    get_filename_component(script "${script}" ABSOLUTE)
    get_filename_component(folder "${script}" DIRECTORY)
    if(WIN32)
        set_property(SOURCE "${script}" APPEND PROPERTY INCLUDE_DIRECTORIES "${folder}")
        target_sources(${target} PRIVATE "${script}")
        return()
    endif()
    find_program(MTBX_WINDRES NAMES x86_64-w64-mingw32-windres windres REQUIRED)
    get_filename_component(name "${script}" NAME_WE)
    set(compiled "${CMAKE_CURRENT_BINARY_DIR}/${target}-${name}.res")
    get_property(languages GLOBAL PROPERTY ENABLED_LANGUAGES)
    set(extension c)
    if(CXX IN_LIST languages)
        set(extension cpp)
    endif()
    set(embedding "${CMAKE_CURRENT_BINARY_DIR}/${target}-${name}-resources.${extension}")
    string(MAKE_C_IDENTIFIER "win32Resources_${name}" symbol) # a program may have several scripts
    add_custom_command(OUTPUT "${compiled}"
        COMMAND "${MTBX_WINDRES}" -I "${folder}" -O res -i "${script}" -o "${compiled}"
        DEPENDS "${script}" VERBATIM)
    file(CONFIGURE OUTPUT "${embedding}" @ONLY CONTENT [[
// The compiled resources of this program, handed to the layer before main.
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif
void Win32_AddProgramResources(const void *resFile, size_t size);
extern const char @symbol@Begin[] __attribute__((visibility("hidden")));
extern const char @symbol@End[] __attribute__((visibility("hidden")));
#ifdef __cplusplus
}
#endif
__asm__(".section .rodata\n.balign 16\n"
        ".hidden @symbol@Begin\n.hidden @symbol@End\n"
        ".globl @symbol@Begin\n@symbol@Begin:\n.incbin \"@compiled@\"\n"
        ".globl @symbol@End\n@symbol@End:\n.byte 0\n.text\n");

__attribute__((constructor)) static void addResources(void)
{
    Win32_AddProgramResources(@symbol@Begin, (size_t)(@symbol@End - @symbol@Begin));
}
]])
    set_source_files_properties("${embedding}" PROPERTIES OBJECT_DEPENDS "${compiled}")
    target_sources(${target} PRIVATE "${embedding}")
endfunction()
