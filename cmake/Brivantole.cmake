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
if(WIN32)
    target_compile_definitions(brivantole_options INTERFACE
        UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0601 _WIN32_WINNT=0x0601)
    target_link_options(brivantole_options INTERFACE -static)
endif()
if(BRIVANTOLE_SANITIZE)
    target_compile_options(brivantole_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(brivantole_options INTERFACE -fsanitize=address,undefined)
endif()

if(BRIVANTOLE_FUZZ)
    target_compile_options(brivantole_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# brivantole_library(NAME SOURCES a.cpp ... [LINKS other ...]): the static library of one folder.
function(brivantole_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC brivantole_options ${ARG_LINKS})
endfunction()

# brivantole_test(NAME SOURCES a.cpp ... [LINKS lib ...]): one GoogleTest executable, run as one test.
# Under Windows it runs through the Wine that CMAKE_CROSSCOMPILING_EMULATOR names.
function(brivantole_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE brivantole_options ${ARG_LINKS} GTest::gmock_main)
    target_compile_definitions(${name} PRIVATE
        BRIVANTOLE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    # The code under test keeps its own level; optimising the tests themselves more than doubles
    # the time they take to compile.
    target_compile_options(${name} PRIVATE -O0)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name})
endfunction()
