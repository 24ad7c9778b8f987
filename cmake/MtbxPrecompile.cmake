# mtbx_precompile(target PRIVATE header ...) or mtbx_precompile(target REUSE_FROM other): headers that are compiled once for
# all C++ sources of a target. A source still includes what it uses: see MTBX_PRECOMPILE.

function(mtbx_precompile target)
    if(NOT MTBX_PRECOMPILE)
        return()
    endif()
    target_precompile_headers(${target} ${ARGN})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # ccache looks for it.
        target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
    endif()
endfunction()
