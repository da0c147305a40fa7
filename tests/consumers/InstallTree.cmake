# Installs the build tree, looks at what has to be there, and moves it all elsewhere.
cmake_minimum_required(VERSION 3.20)
file(REMOVE_RECURSE "${MADE}" "${MOVED}")
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix "${MADE}" OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
foreach(file bin/board_viewer include/kolm/kolm.h include/kolm/foundation/CKRect.h include/kolm/platform/afx.h
        ${LIBDIR}/libkolm.so.${VERSION} ${LIBDIR}/libkolm.so.${ABI} ${LIBDIR}/libkolm.so
        ${LIBDIR}/cmake/Kolm/KolmConfig.cmake ${LIBDIR}/cmake/Kolm/KolmConfigVersion.cmake
        ${LIBDIR}/pkgconfig/kolm.pc share/kolm/kolm-demo.kicad_pcb)
    if(NOT EXISTS "${MADE}/${file}")
        message(SEND_ERROR "${file} is not installed")
    endif()
endforeach()
# The name that programs are linked with is in the library itself, and files beside it lead to it.
file(STRINGS "${MADE}/${LIBDIR}/libkolm.so" soname REGEX "^libkolm\\.so\\.[0-9.]+$")
if(NOT soname STREQUAL "libkolm.so.${ABI}")
    message(SEND_ERROR "the library calls itself '${soname}'")
endif()
file(GLOB_RECURSE texts "${MADE}/*.cmake" "${MADE}/*.pc")
foreach(text IN LISTS texts)
    file(READ "${text}" content)
    foreach(place IN ITEMS "${MADE}" "${BUILD}")
        string(FIND "${content}" "${place}" at)
        if(NOT at EQUAL -1)
            message(SEND_ERROR "${text} names ${place}")
        endif()
    endforeach()
endforeach()
file(RENAME "${MADE}" "${MOVED}")
