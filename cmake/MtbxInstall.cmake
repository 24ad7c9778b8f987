# cmake --install: headers, libraries, tools, the CMake package and the pkg-config files. Everything installed finds
# the rest relative to itself, so the folder may be moved as a whole.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/MTBX")
set(win32_headers "${CMAKE_INSTALL_INCLUDEDIR}/mtbx-win32")
set(classic_headers "${CMAKE_INSTALL_INCLUDEDIR}/mtbx-classic")

set_target_properties(mtbx PROPERTIES EXPORT_NAME MTBX)
set(libraries mtbx win32 jrnl shoalview)
set(tools mtbx-res mtbx-classic-source)
set_target_properties(${libraries} PROPERTIES INSTALL_RPATH "$ORIGIN")
file(RELATIVE_PATH libraries_from_tools "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
set_target_properties(${tools} PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries_from_tools}")

install(TARGETS ${libraries} hostkit classic_headers ${tools} EXPORT MTBXTargets
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY include/mtbx DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
if(NOT WIN32)
    target_include_directories(win32 INTERFACE "$<INSTALL_INTERFACE:${win32_headers}>")
    install(DIRECTORY win32/include/ DESTINATION "${win32_headers}")
endif()
install(DIRECTORY hostkit/include/hostkit DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
target_include_directories(classic_headers INTERFACE "$<INSTALL_INTERFACE:${classic_headers}>")
install(DIRECTORY hostkit/include/classic/ DESTINATION "${classic_headers}")
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DATADIR}/licenses/mtbx")

install(EXPORT MTBXTargets NAMESPACE MTBX:: DESTINATION "${package_folder}")
configure_package_config_file(cmake/MTBXConfig.cmake.in "${PROJECT_BINARY_DIR}/MTBXConfig.cmake"
    INSTALL_DESTINATION "${package_folder}" NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/MTBXConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/MTBXConfig.cmake" "${PROJECT_BINARY_DIR}/MTBXConfigVersion.cmake"
    cmake/MtbxClassicSources.cmake cmake/MtbxResources.cmake DESTINATION "${package_folder}")
# For cross builds, which need the tool for the machine that builds.
install(DIRECTORY tools/classic-source DESTINATION "${package_folder}" FILES_MATCHING PATTERN "*.h" PATTERN "*.cpp")

# Name and flags of a package for pkg-config, which takes its prefix from where the file lies.
function(install_pkgconfig name description)
    cmake_parse_arguments(arg "" "REQUIRES;CFLAGS;LIBS;VARIABLES" "" ${ARGN})
    set(pkgconfig_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
    file(RELATIVE_PATH prefix "/${pkgconfig_folder}" "/")
    string(REGEX REPLACE "/$" "" prefix "${prefix}")
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY CONTENT [[
prefix=${pcfiledir}/@prefix@
includedir=${prefix}/@CMAKE_INSTALL_INCLUDEDIR@
libdir=${prefix}/@CMAKE_INSTALL_LIBDIR@
@arg_VARIABLES@
Name: @name@
Description: @description@
Version: @PROJECT_VERSION@
Requires: @arg_REQUIRES@
Cflags: @arg_CFLAGS@
Libs: @arg_LIBS@
]])
    install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION "${pkgconfig_folder}")
endfunction()

set(flags "-I\${includedir}")
set(link "-L\${libdir} -lMTBX")
if(WIN32)
    get_target_property(system_libraries win32 INTERFACE_LINK_LIBRARIES)
    list(TRANSFORM system_libraries PREPEND " -l")
    string(APPEND link ${system_libraries})
else()
    string(APPEND flags " -I\${includedir}/mtbx-win32")
    string(APPEND link " -lwin32 -Wl,-rpath-link,\${libdir}")
endif()
install_pkgconfig(mtbx "${PROJECT_DESCRIPTION}" CFLAGS "${flags}" LIBS "${link}")
install_pkgconfig(mtbx-hostkit "The host's share of a program that uses MTBX" REQUIRES "mtbx = ${PROJECT_VERSION}"
    VARIABLES "classicdir=\${includedir}/mtbx-classic\n" LIBS "-L\${libdir} -lhostkit -lstdc++")
