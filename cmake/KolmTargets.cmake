# What our targets are compiled with. Warnings and sanitizers are ours and never reach a host; the language standard and
# the ban on fused multiply-add do, since results have to have the same bits in a host's inlined copies.

function(kolm_own_flags target)
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-Wall -Wextra -Wpedantic>)
    set_target_properties(${target} PROPERTIES CXX_STANDARD 17 CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF)
    if(KOLM_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer -g)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined,float-cast-overflow)
    endif()
    if(KOLM_BUILD_FUZZERS)
        # Counters that steer the fuzzer, which the programs in fuzz/ alone bring along. A program that has none finds
        # the sanitizer's empty ones.
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
        target_link_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endfunction()

function(kolm_library_settings target)
    kolm_own_flags(${target})
    target_compile_features(${target} PUBLIC cxx_std_17)
    # Fused multiply-add rounds once instead of twice, so results would differ by processor.
    target_compile_options(${target} PUBLIC $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-ffp-contract=off>)
    # Calls inside the library go straight to their function: nobody replaces one of ours from outside.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
    target_link_options(${target} PRIVATE $<$<PLATFORM_ID:Linux>:-Wl,-Bsymbolic-functions>)
    target_compile_definitions(${target} PRIVATE KOLM_BUILDING)
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<BUILD_INTERFACE:$<$<NOT:$<PLATFORM_ID:Windows>>:${PROJECT_SOURCE_DIR}/platform>>)
    set_target_properties(${target} PROPERTIES
        CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
        VERSION ${PROJECT_VERSION} SOVERSION ${KOLM_ABI_VERSION})
endfunction()

# kolm_public_headers(<files>...): headers of the calling folder that hosts include, directly or through another one.
function(kolm_public_headers)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE folder)
    list(TRANSFORM ARGN PREPEND ${folder}/)
    set_property(GLOBAL APPEND PROPERTY KOLM_PUBLIC_HEADERS ${ARGN})
endfunction()

# kolm_add_tests(<name> <sources>...): one GoogleTest program, its cases registered with CTest one by one.
function(kolm_add_tests name)
    add_executable(${name} ${ARGN})
    kolm_own_flags(${name})
    target_link_libraries(${name} PRIVATE Kolm::kolm GTest::gtest_main)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    # GoogleTest's own macros leave out a variadic argument.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:Clang,AppleClang>:-Wno-gnu-zero-variadic-macro-arguments>)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()

# kolm_add_bench(<name> <sources>...): one Google Benchmark program, run by bench/report, never by CTest. The target
# kolm_benches builds all of them.
function(kolm_add_bench name)
    add_executable(${name} ${ARGN})
    kolm_own_flags(${name})
    target_link_libraries(${name} PRIVATE Kolm::kolm benchmark::benchmark)
    add_dependencies(kolm_benches ${name})
endfunction()
