# Builds one of the projects beside this file in a new folder and runs its host.
cmake_minimum_required(VERSION 3.20)
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
set(here ${CMAKE_CURRENT_LIST_DIR})
set(configure ${CMAKE_COMMAND} -B ${FOLDER} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX}
    -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
macro(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endmacro()

if(KIND STREQUAL "find_package")
    run(${configure} -S ${here}/find_package "-DCMAKE_PREFIX_PATH=${PREFIX}")
elseif(KIND STREQUAL "pkg_config")
    set(ENV{PKG_CONFIG_PATH} "${PREFIX}/${LIBDIR}/pkgconfig")
    execute_process(COMMAND ${MAKE} -C ${FOLDER} -f ${here}/pkg_config/Makefile CXX=${CXX}
        COMMAND_ERROR_IS_FATAL ANY)
elseif(KIND STREQUAL "add_subdirectory")
    # Without optimisation, which is quicker; what is asked is whether it builds.
    run(${configure} -S ${here}/add_subdirectory -DKOLM_SOURCE=${SOURCE} -DCMAKE_BUILD_TYPE=Debug)
elseif(KIND STREQUAL "fetchcontent")
    # It ends in add_subdirectory, so the build would be the same; here the target has to be found.
    run(${configure} -S ${here}/add_subdirectory -DKOLM_SOURCE=${SOURCE} -DUSE_FETCHCONTENT=ON)
    return()
endif()
if(NOT KIND STREQUAL "pkg_config")
    cmake_host_system_information(RESULT cores QUERY NUMBER_OF_LOGICAL_CORES)
    run(${CMAKE_COMMAND} --build ${FOLDER} -j ${cores} --target host)
endif()
execute_process(COMMAND ${FOLDER}/host OUTPUT_VARIABLE answer COMMAND_ERROR_IS_FATAL ANY)
if(NOT answer STREQUAL "Kolm ${VERSION} works\n")
    message(FATAL_ERROR "the host says: ${answer}")
endif()
