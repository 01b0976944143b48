# What every target of the tree has in common.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# The programs find their texts, language list and samples beside themselves, in the build tree as well as installed.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

find_program(TAVRIN_CCACHE ccache)
if(TAVRIN_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${TAVRIN_CCACHE}")
endif()

add_library(tavrin_options INTERFACE)
target_include_directories(tavrin_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_options(tavrin_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast
                                                -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(tavrin_options INTERFACE -Wno-restrict) # false alarm on "literal" + std::string, GCC bug 105651
endif()
if(TAVRIN_STRICT)
  target_compile_options(tavrin_options INTERFACE -Werror)
endif()
if(TAVRIN_SANITIZE)
  # Not vptr: that check opens a pipe, and raises a false alarm in a test that leaves the process no file number.
  target_compile_options(tavrin_options INTERFACE -fsanitize=${TAVRIN_SANITIZE} -fno-sanitize=vptr
                                                  -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_definitions(tavrin_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(tavrin_options INTERFACE -fsanitize=${TAVRIN_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(tavrin_options INTERFACE "-fsanitize-ignorelist=${CMAKE_SOURCE_DIR}/cmake/sanitizer-ignore.txt")
  endif()
endif()
if(TAVRIN_FUZZ)
  target_compile_options(tavrin_options INTERFACE -fsanitize=fuzzer-no-link) # lets the fuzzer see what an input reached
endif()

# tavrin_library(NAME folder sources... LINKS libraries...): the one library of a folder of src/.
function(tavrin_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC tavrin_options ${ARG_LINKS})
endfunction()

# tavrin_test(NAME SOURCES ... LINKS ...): one GoogleTest program, its tests known to CTest one by one.
function(tavrin_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE tavrin_test_support ${ARG_LINKS})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()
