# Makes the pictures anew and compares them byte by byte with those in docs/. After a wanted change of the drawing,
# scripts/pictures renews them.
execute_process(COMMAND ${SCRIPT} ${VIEWER} pictures RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the pictures cannot be made: ${result}")
endif()
foreach(picture kolm-demo.png kolm-demo-diff.png)
    file(SHA256 pictures/${picture} made)
    file(SHA256 ${DOCS}/${picture} kept)
    if(NOT made STREQUAL kept)
        message(FATAL_ERROR "docs/${picture} is not what the viewer draws; run scripts/pictures ${VIEWER}")
    endif()
endforeach()
