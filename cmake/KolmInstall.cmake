# What `cmake --install` puts where: a shared library, the headers that a host includes, and what find_package and
# pkg-config read. Three components, which become three packages: library, development and viewer.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(KOLM_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/kolm)
set(KOLM_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Kolm)

install(TARGETS kolm EXPORT KolmTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
# The second folder holds what stands in for the platform's headers, which are named without a folder.
target_include_directories(kolm INTERFACE
    $<INSTALL_INTERFACE:${KOLM_INCLUDE_DIR}>
    $<$<NOT:$<PLATFORM_ID:Windows>>:$<INSTALL_INTERFACE:${KOLM_INCLUDE_DIR}/platform>>)

get_property(headers GLOBAL PROPERTY KOLM_PUBLIC_HEADERS)
foreach(header IN LISTS headers)
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${KOLM_INCLUDE_DIR}/${folder} COMPONENT development)
endforeach()

install(EXPORT KolmTargets NAMESPACE Kolm:: DESTINATION ${KOLM_CMAKE_DIR} COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/KolmConfig.cmake.in
    ${PROJECT_BINARY_DIR}/package/KolmConfig.cmake INSTALL_DESTINATION ${KOLM_CMAKE_DIR})
# The rule of the soname.
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(compatibility SameMinorVersion)
else()
    set(compatibility SameMajorVersion)
endif()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/KolmConfigVersion.cmake COMPATIBILITY ${compatibility})
install(FILES ${PROJECT_BINARY_DIR}/package/KolmConfig.cmake ${PROJECT_BINARY_DIR}/package/KolmConfigVersion.cmake
    DESTINATION ${KOLM_CMAKE_DIR} COMPONENT development)

if(NOT WIN32)
    # The paths follow from where the file lies, so that a tree may be moved, or installed under any prefix.
    set(pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    file(RELATIVE_PATH pc_prefix /prefix/${pc_dir} /prefix)
    string(REGEX REPLACE "/$" "" pc_prefix "\${pcfiledir}/${pc_prefix}")
    set(pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
    set(pc_includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
    if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
        set(pc_prefix ${CMAKE_INSTALL_PREFIX})
        set(pc_libdir ${CMAKE_INSTALL_LIBDIR})
    endif()
    if(IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
        set(pc_includedir ${CMAKE_INSTALL_INCLUDEDIR})
    endif()
    configure_file(${CMAKE_CURRENT_LIST_DIR}/kolm.pc.in ${PROJECT_BINARY_DIR}/package/kolm.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/package/kolm.pc DESTINATION ${pc_dir} COMPONENT development)
endif()

# kolm_install_viewer(<target>): the program and the demo board. It finds the library beside it, wherever both lie.
function(kolm_install_viewer target)
    file(RELATIVE_PATH lib_from_bin /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${CMAKE_INSTALL_LIBDIR})
    if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" AND NOT IS_ABSOLUTE "${CMAKE_INSTALL_BINDIR}")
        set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${lib_from_bin}")
    endif()
    install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT viewer)
endfunction()

if(PROJECT_IS_TOP_LEVEL)
    include(${CMAKE_CURRENT_LIST_DIR}/KolmPackages.cmake)
endif()
