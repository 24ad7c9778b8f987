# mtbx_classic_sources(target [MACROMAN | UTF8] [LONG32] [PREFIX header] [BASE folder] SOURCES file ...)
#
# Sources and headers written for the Macintosh are converted at build time into a folder of the build tree that
# mirrors the one they are in (BASE, otherwise the current one), and the target compiles what is there. Name the headers
# as well, and sources that lie beside them and include them: the target finds a converted header before the original,
# but a quoted include looks beside the source first. Memory.h, Windows.h and their like are the Toolbox's headers in
# this target.
#
# MACROMAN, UTF8: how the files are encoded; text in literals is converted to the code page 1252.
# LONG32: long is 32 bits wide, as it was.
# PREFIX: a header that each of the sources begins with, such as hostkit/classic.h.
#
# The tool that converts is built for this machine when the target is for another; MTBX_CLASSIC_SOURCE_TOOL names one
# that is there already.

set(MTBX_CLASSIC_SOURCE_TOOL "" CACHE FILEPATH "mtbx-classic-source for this machine, if it is not to be built")

function(mtbx_classic_sources target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "MACROMAN;UTF8;LONG32" "BASE;PREFIX" "SOURCES")
    if(arg_UNPARSED_ARGUMENTS OR NOT arg_SOURCES)
        message(FATAL_ERROR
            "mtbx_classic_sources(${target} ...): SOURCES are missing, or unknown: ${arg_UNPARSED_ARGUMENTS}")
    endif()
    get_target_property(folder ${target} SOURCE_DIR)
    if(NOT folder STREQUAL CMAKE_CURRENT_SOURCE_DIR)
        message(FATAL_ERROR "mtbx_classic_sources(${target} ...) belongs where the target is added, in ${folder}")
    endif()
    set(options "")
    foreach(option IN ITEMS "MACROMAN=--macroman" "UTF8=--utf8" "LONG32=--long=32")
        string(REGEX MATCH "^([A-Z0-9]+)=(.*)$" option "${option}")
        if(arg_${CMAKE_MATCH_1})
            list(APPEND options "${CMAKE_MATCH_2}")
        endif()
    endforeach()
    if(NOT arg_BASE)
        set(arg_BASE "${CMAKE_CURRENT_SOURCE_DIR}")
    endif()
    cmake_path(ABSOLUTE_PATH arg_BASE NORMALIZE OUTPUT_VARIABLE base)
    set(mirror "${CMAKE_CURRENT_BINARY_DIR}/classic-sources/${target}")
    _mtbx_classic_tool(tool tool_dependency)

    set(results "")
    set(folders "")
    foreach(source IN LISTS arg_SOURCES)
        cmake_path(ABSOLUTE_PATH source NORMALIZE)
        cmake_path(IS_PREFIX base "${source}" NORMALIZE is_inside)
        if(NOT is_inside)
            message(FATAL_ERROR
                "mtbx_classic_sources(${target} ...): ${source} is not in ${base}; name a BASE that holds it")
        endif()
        cmake_path(GET source PARENT_PATH folder)
        list(APPEND folders "${folder}")
        cmake_path(RELATIVE_PATH source BASE_DIRECTORY "${base}" OUTPUT_VARIABLE relative)
        set(result "${mirror}/${relative}")
        add_custom_command(OUTPUT "${result}" COMMAND "${tool}" ${options} "${source}" "${result}"
            DEPENDS "${source}" ${tool_dependency} COMMENT "Converting ${relative}" VERBATIM)
        list(APPEND results "${result}")
    endforeach()
    target_sources(${target} PRIVATE ${results})
    # Their names are not to meet what the target precompiles.
    set_source_files_properties(${results} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)

    # CodeWarrior's extension is not among those that CMake knows.
    set(named_cp "${results}")
    list(FILTER named_cp INCLUDE REGEX "\\.cp$")
    set_source_files_properties(${named_cp} PROPERTIES LANGUAGE CXX)

    set(compile_options -Wno-multichar $<$<COMPILE_LANGUAGE:C>:-Wno-pointer-sign>)
    if(EXISTS "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/mtbxclassicsources.cmake")
        # File names have no case; see Memory.h.
        list(APPEND compile_options -include mtbx/MTBXConfig.h)
    endif()
    if(arg_PREFIX)
        list(APPEND compile_options -include "${arg_PREFIX}")
    endif()
    if(arg_LONG32)
        # What passes an int where a long is read or written must not compile.
        list(APPEND compile_options -Werror=format $<$<COMPILE_LANGUAGE:C>:-Werror=incompatible-pointer-types>)
    endif()
    list(REMOVE_DUPLICATES folders)
    foreach(folder IN LISTS folders)
        # For headers that lie beside the originals and are not converted.
        list(APPEND compile_options -iquote "${folder}")
    endforeach()
    set_property(SOURCE ${results} APPEND PROPERTY COMPILE_OPTIONS ${compile_options})
    target_include_directories(${target} BEFORE PRIVATE
        $<TARGET_PROPERTY:MTBX::classic_headers,INTERFACE_INCLUDE_DIRECTORIES>)

    # The target's include folders are known in the end.
    cmake_language(EVAL CODE "cmake_language(DEFER CALL _mtbx_mirror_includes [[${target}]] [[${base}]] [[${mirror}]])")
endfunction()

# Before each include folder of the target that is in the base, its mirror.
function(_mtbx_mirror_includes target base mirror)
    foreach(property IN ITEMS INCLUDE_DIRECTORIES INTERFACE_INCLUDE_DIRECTORIES)
        get_target_property(folders ${target} ${property})
        if(NOT folders)
            continue()
        endif()
        set(mirrored "")
        foreach(folder IN LISTS folders)
            string(REGEX REPLACE "^\\$<BUILD_INTERFACE:(.*)>$" "\\1" folder "${folder}")
            cmake_path(IS_PREFIX base "${folder}" NORMALIZE is_inside)
            cmake_path(IS_PREFIX mirror "${folder}" NORMALIZE is_mirrored)
            if(is_inside AND NOT is_mirrored)
                cmake_path(RELATIVE_PATH folder BASE_DIRECTORY "${base}")
                list(APPEND mirrored "$<BUILD_INTERFACE:${mirror}/${folder}>")
            endif()
        endforeach()
        list(PREPEND folders ${mirrored})
        list(REMOVE_DUPLICATES folders)
        set_property(TARGET ${target} PROPERTY ${property} "${folders}")
    endforeach()
endfunction()

# The tool's path, and what conversions depend on besides.
function(_mtbx_classic_tool path dependency)
    if(MTBX_CLASSIC_SOURCE_TOOL)
        set(${path} "${MTBX_CLASSIC_SOURCE_TOOL}" PARENT_SCOPE)
        set(${dependency} "${MTBX_CLASSIC_SOURCE_TOOL}" PARENT_SCOPE)
        return()
    endif()
    if(NOT CMAKE_CROSSCOMPILING)
        set(${path} $<TARGET_FILE:MTBX::mtbx-classic-source> PARENT_SCOPE)
        set(${dependency} MTBX::mtbx-classic-source PARENT_SCOPE)
        return()
    endif()
    set(tool "${CMAKE_BINARY_DIR}/classic-source-tool/mtbx-classic-source${CMAKE_HOST_EXECUTABLE_SUFFIX}")
    _mtbx_build_classic_tool("${tool}")
    set(${path} "${tool}" PARENT_SCOPE)
    set(${dependency} "${tool}" PARENT_SCOPE)
endfunction()

# With the compiler of this machine, at configuration: a build for another system knows no such compiler.
function(_mtbx_build_classic_tool tool)
    set(folder "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/classic-source") # installed
    if(NOT EXISTS "${folder}")
        cmake_path(SET folder NORMALIZE "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../tools/classic-source")
    endif()
    file(GLOB sources "${folder}/*.cpp")
    file(GLOB headers "${folder}/*.h")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sources} ${headers})
    set(is_current ON)
    foreach(file IN LISTS sources headers)
        if("${file}" IS_NEWER_THAN "${tool}")
            set(is_current OFF)
        endif()
    endforeach()
    if(is_current)
        return()
    endif()
    find_program(MTBX_BUILD_CXX NAMES c++ g++ clang++ NO_CMAKE_FIND_ROOT_PATH
        DOC "C++ compiler for programs that run on this machine")
    cmake_path(GET tool PARENT_PATH tool_folder)
    file(MAKE_DIRECTORY "${tool_folder}")
    set(output "no C++ compiler was found")
    if(MTBX_BUILD_CXX)
        execute_process(COMMAND "${MTBX_BUILD_CXX}" -std=c++20 -O1 ${sources} -o "${tool}"
            RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    endif()
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "mtbx-classic-source cannot be built for this machine: ${output}\n"
            "Set MTBX_BUILD_CXX to a compiler for it, or MTBX_CLASSIC_SOURCE_TOOL to the tool.")
    endif()
endfunction()
