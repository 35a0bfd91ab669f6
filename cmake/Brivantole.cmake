# Shared build rules: warnings, the library and the test of one folder.

add_library(brivantole_options INTERFACE)
target_compile_features(brivantole_options INTERFACE cxx_std_20)
target_include_directories(brivantole_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(brivantole_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror)
# GCC 12 takes the inlined concatenation of strings for overlapping copies (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(brivantole_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(brivantole_options INTERFACE -Wreserved-identifier)
endif()
if(WIN32)
    target_compile_definitions(brivantole_options INTERFACE
        UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0601 _WIN32_WINNT=0x0601)
    target_link_options(brivantole_options INTERFACE -static)
endif()
if(BRIVANTOLE_SANITIZE)
    # fuzzer-no-link lets the fuzzers see the way an input takes; the tests run the same objects.
    target_compile_options(brivantole_options INTERFACE
        -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(brivantole_options INTERFACE -fsanitize=address,undefined)
endif()

# brivantole_library(NAME SOURCES a.cpp ... [LINKS other ...]): the static library of one folder.
function(brivantole_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC brivantole_options ${ARG_LINKS})
endfunction()

# What every test has. Reading GoogleTest takes longer than compiling a test file, so it is read once
# for all of them. The code under test keeps its own level; optimising the tests themselves more than
# doubles the time they take to compile.
set(projectfiles ${PROJECT_SOURCE_DIR}/tests/fakes/projectfiles.cpp)
set_source_files_properties(${projectfiles} PROPERTIES
    COMPILE_DEFINITIONS BRIVANTOLE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
add_library(brivantole_testing OBJECT EXCLUDE_FROM_ALL ${projectfiles})
target_link_libraries(brivantole_testing PUBLIC brivantole_options GTest::gmock_main)
target_compile_options(brivantole_testing PUBLIC -O0)
target_precompile_headers(brivantole_testing PRIVATE <gmock/gmock.h>)

# brivantole_test(NAME SOURCES a.cpp ... [LINKS lib ...]): one GoogleTest executable, run as one test.
# Under Windows it runs through the Wine that CMAKE_CROSSCOMPILING_EMULATOR names.
function(brivantole_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LINKS} brivantole_testing)
    target_precompile_headers(${name} REUSE_FROM brivantole_testing)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name})
endfunction()
