# The installed headers are those that kolm.h leads to: none is missing, and none of the library's private ones got in.
cmake_minimum_required(VERSION 3.20)
set(include "${PREFIX}/include/kolm")
execute_process(COMMAND ${CXX} -std=c++17 -MM "-I${include}" "-I${include}/platform" "${include}/kolm.h"
    OUTPUT_VARIABLE rule COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\\ " "?" rule "${rule}") # a space in a path
string(REGEX MATCHALL "[^ \n\\]+\\.h" reached "${rule}")
list(TRANSFORM reached REPLACE "\\?" " ")
file(GLOB_RECURSE installed "${include}/*")
foreach(header IN LISTS installed)
    if(NOT header IN_LIST reached)
        message(SEND_ERROR "${header} is installed, and kolm.h does not lead to it")
    endif()
endforeach()
list(LENGTH reached count)
if(count LESS 50)
    message(SEND_ERROR "only ${count} headers found in: ${rule}")
endif()
