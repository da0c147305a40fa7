# Three Debian packages from the three components of the installation: `cpack` in the build folder. The names follow the
# distribution's custom, so that libraries of two sonames can be installed side by side. Configured for the prefix /usr,
# as by the preset, the library lies in the folder of its processor architecture.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kolm)
set(CPACK_PACKAGE_VENDOR "Kolm")
set(CPACK_PACKAGE_CONTACT "Kolm maintainers <maintainers@users.noreply.c-seed-570d6266.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development viewer)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Which packages the programs need is read from them, where the tool for that is there.
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
if(DPKG_SHLIBDEPS)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
endif()
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libkolm${KOLM_ABI_VERSION})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS fonts-dejavu-core) # without any font, texts are not drawn
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkolm-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_VIEWER_PACKAGE_NAME kolm-viewer)
set(CPACK_DEBIAN_VIEWER_PACKAGE_SECTION graphics)

include(CPack)
cpack_add_component(library DESCRIPTION "The shared library that programs built with Kolm load.")
cpack_add_component(development DEPENDS library
    DESCRIPTION "Headers, and what CMake and pkg-config need to build programs with Kolm.")
cpack_add_component(viewer DEPENDS library
    DESCRIPTION "Draws, measures and searches printed-circuit boards, and the demo board.")
