# How every target of the project is made: one language level, one set of warnings, one include root.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(TILWIN_SANITIZE "" CACHE STRING "Sanitizers to build with: \"address,undefined\" or \"thread\"; none when empty")
option(TILWIN_FUZZ "Build the core and its fuzz targets, and nothing else (needs clang)" OFF)

add_library(TilwinBuildRules INTERFACE)
target_include_directories(TilwinBuildRules INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(TilwinBuildRules INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_UNITY_BUILD)
  # Joined, a source looks like a header to GCC, and its locals seem to hide the file-local names of its neighbours.
  # The release build and lint, which compile each source on its own, give these two warnings where they are due.
  target_compile_options(TilwinBuildRules INTERFACE -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
if(TILWIN_SANITIZE)
  target_compile_options(TilwinBuildRules INTERFACE
    -fsanitize=${TILWIN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(TilwinBuildRules INTERFACE -fsanitize=${TILWIN_SANITIZE})
endif()
if(TILWIN_FUZZ)
  target_compile_options(TilwinBuildRules INTERFACE -fsanitize=fuzzer-no-link)
endif()

# tilwin_library(NAME SOURCES a.cpp ... [LINK TargetA ...]): a static library of the project.
function(tilwin_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC TilwinBuildRules ${arg_LINK})
endfunction()

# tilwin_program(NAME SOURCES a.cpp ... [LINK TargetA ...]): a program, put at the top of the build folder.
function(tilwin_program name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE TilwinBuildRules ${arg_LINK})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
endfunction()

# tilwin_test_program(NAME SOURCES ... [LINK ...]): the same for tests. Reading what nearly all of them include takes
# longer than reading the tests, so that is read once (see tests/CMakeLists.txt).
function(tilwin_test_program name)
  tilwin_program(${name} ${ARGN})
  tilwin_precompiled(${name})
endfunction()

# tilwin_precompiled(TARGET): the target shares the tests' precompiled headers. Sharing wants one kind of code
# everywhere, and Qt wants -fPIC of who uses it.
function(tilwin_precompiled target)
  target_compile_options(${target} PRIVATE -fPIC)
  target_precompile_headers(${target} REUSE_FROM TilwinTestHeaders)
endfunction()

# tilwin_test_run(RUN COMMAND program ... [LABELS label ...]): one run of a test program, its results kept as XML for
# the final count. The target runs-LABEL builds the programs of all runs with that label and no others.
function(tilwin_test_run run)
  cmake_parse_arguments(arg "" "" "COMMAND;LABELS" ${ARGN})
  add_test(NAME ${run} COMMAND ${arg_COMMAND})
  set_tests_properties(${run} PROPERTIES
    ENVIRONMENT "GTEST_OUTPUT=xml:${CMAKE_BINARY_DIR}/results/${run}.xml"
    LABELS "${arg_LABELS}")
  list(GET arg_COMMAND 0 program)
  foreach(label ${arg_LABELS})
    if(NOT TARGET runs-${label})
      add_custom_target(runs-${label})
    endif()
    add_dependencies(runs-${label} ${program})
  endforeach()
endfunction()
