# How every target of the project is made: one language level, one set of warnings, one include root.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(TILWIN_SANITIZE "" CACHE STRING "Sanitizers to build with: \"address,undefined\" or \"thread\"; none when empty")
option(TILWIN_FUZZ "Build the core and its fuzz targets, and nothing else (needs clang)" OFF)
option(TILWIN_LINT "Run clang-tidy on every source that is compiled" OFF)
option(TILWIN_LEAN_TESTS "Build tests unoptimised and joined, whatever the program is built as" OFF)
option(TILWIN_READ_ONLY "Compile without making anything: objects, libraries and programs are empty files" OFF)

if(TILWIN_READ_ONLY)
  # Generating code takes as long as reading it. The empty files tell Ninja what has been read.
  foreach(language CXX OBJCXX)
    set(CMAKE_${language}_COMPILE_OBJECT "<CMAKE_${language}_COMPILER> <DEFINES> <INCLUDES> <FLAGS> -fsyntax-only -c <SOURCE>"
      "${CMAKE_COMMAND} -E touch <OBJECT>")
    set(CMAKE_${language}_LINK_EXECUTABLE "${CMAKE_COMMAND} -E touch <TARGET>")
    set(CMAKE_${language}_CREATE_STATIC_LIBRARY "${CMAKE_COMMAND} -E touch <TARGET>")
    set(CMAKE_${language}_ARCHIVE_CREATE "${CMAKE_COMMAND} -E touch <TARGET>")
    set(CMAKE_${language}_ARCHIVE_FINISH "")
  endforeach()
endif()

# Without this sloppiness ccache does not cache what uses precompiled headers.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

add_library(TilwinBuildRules INTERFACE)
target_include_directories(TilwinBuildRules INTERFACE ${CMAKE_SOURCE_DIR})
# Joined, a source looks like a header to GCC, and its locals seem to hide the file-local names of its neighbours. Builds that
# read each source on its own give these two warnings where they belong.
set(is_joined "$<AND:$<COMPILE_LANGUAGE:CXX>,$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>")
target_compile_options(TilwinBuildRules INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Werror "$<$<NOT:${is_joined}>:-Wshadow>"
  "$<$<AND:${is_joined},$<CXX_COMPILER_ID:GNU>>:-Wno-subobject-linkage>")
if(TILWIN_SANITIZE)
  target_compile_options(TilwinBuildRules INTERFACE
    -fsanitize=${TILWIN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(TilwinBuildRules INTERFACE -fsanitize=${TILWIN_SANITIZE})
endif()
if(TILWIN_FUZZ)
  target_compile_options(TilwinBuildRules INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(TILWIN_LINT)
  # In the command line, so that a change of the configuration lints everything again.
  set_property(DIRECTORY ${CMAKE_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS .clang-tidy)
  file(SHA1 ${CMAKE_SOURCE_DIR}/.clang-tidy lint_rules)
  set(lint clang-tidy --quiet --extra-arg=-DLINT_RULES_${lint_rules}
    --extra-arg=-Wno-error --extra-arg=-Wno-unknown-warning-option)
endif()

# tilwin_checked(TARGET): what scripts/check looks at: the target's sources, linted, and each header without a source in its
# folders that no target before it has, compiled on its own. A header with a source comes first there, and the builds
# release and alone compile each source on its own.
function(tilwin_checked target)
  set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${lint}"
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
  get_target_property(sources ${target} SOURCES)
  list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ REGEX "^[^/]")
  set(patterns ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  set(own)
  foreach(source ${sources})
    cmake_path(NORMAL_PATH source)
    cmake_path(GET source PARENT_PATH folder)
    list(APPEND patterns ${folder}/*.h)
    list(APPEND own ${source})
  endforeach()
  file(GLOB headers CONFIGURE_DEPENDS ${patterns})
  get_property(taken GLOBAL PROPERTY TILWIN_HEADERS)
  foreach(header ${headers})
    cmake_path(REPLACE_EXTENSION header LAST_ONLY cpp OUTPUT_VARIABLE source)
    if(EXISTS ${source} AND source IN_LIST own)
      set_property(GLOBAL APPEND PROPERTY TILWIN_HEADERS ${header})
    endif()
    if(header IN_LIST taken OR EXISTS ${source})
      list(REMOVE_ITEM headers ${header})
    endif()
  endforeach()
  set_property(GLOBAL APPEND PROPERTY TILWIN_HEADERS ${headers})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR} FILES ${headers})
endfunction()

# tilwin_library(NAME SOURCES a.cpp ... [LINK TargetA ...]): a static library of the project.
function(tilwin_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC TilwinBuildRules ${arg_LINK})
  tilwin_checked(${name})
endfunction()

# tilwin_program(NAME SOURCES a.cpp ... [LINK TargetA ...]): a program, put at the top of the build folder.
function(tilwin_program name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC TilwinBuildRules ${arg_LINK})
  # CMake checks the headers of a program only where it could have plugins.
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR} ENABLE_EXPORTS "${CMAKE_VERIFY_INTERFACE_HEADER_SETS}")
  tilwin_checked(${name})
endfunction()

# tilwin_test_program(NAME SOURCES ... [LINK ...]): the same for tests. Reading what nearly all of them include takes
# longer than reading the tests, so that is read once (see tests/CMakeLists.txt).
function(tilwin_test_program name)
  tilwin_program(${name} ${ARGN})
  tilwin_precompiled(${name})
endfunction()

# tilwin_precompiled(TARGET): the target shares the tests' precompiled headers, of which tests/Printing.h is one; builds
# without them include that one all the same. Sharing requires the same code generation options everywhere, and
# Qt requires -fPIC of its users.
function(tilwin_precompiled target)
  target_compile_options(${target} PRIVATE -fPIC)
  tilwin_lean(${target})
  target_precompile_headers(${target} REUSE_FROM TilwinTestHeaders)
  if(CMAKE_DISABLE_PRECOMPILE_HEADERS AND NOT TILWIN_LEAN_TESTS)
    target_compile_options(${target} PRIVATE "SHELL:-include ${CMAKE_SOURCE_DIR}/tests/Printing.h")
  endif()
endfunction()

# tilwin_lean(TARGET): where the program is built as people run it, what only tests it is built as fast as can be.
function(tilwin_lean target)
  if(TILWIN_LEAN_TESTS)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON DISABLE_PRECOMPILE_HEADERS OFF)
    target_compile_options(${target} PRIVATE -O0)
  endif()
endfunction()

# tilwin_test_run(RUN COMMAND program ... [LABELS preset ...]): one run of a test program. It leaves its results as XML in
# results/RUN.xml. Its labels are its folder under tests/ and the presets other than asan in which it is run as well.
# The target "runs" builds the programs of all runs, "runs-LABEL" those of the runs with that label.
function(tilwin_test_run run)
  cmake_parse_arguments(arg "" "" "COMMAND;LABELS" ${ARGN})
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR}/tests OUTPUT_VARIABLE folder)
  string(REGEX REPLACE "/.*" "" folder ${folder})
  set(labels ${folder} ${arg_LABELS})
  add_test(NAME ${run} COMMAND ${arg_COMMAND})
  set_tests_properties(${run} PROPERTIES LABELS "${labels}"
    ENVIRONMENT "GTEST_OUTPUT=xml:${CMAKE_BINARY_DIR}/results/${run}.xml;PYTHONDONTWRITEBYTECODE=1")
  list(TRANSFORM labels PREPEND runs-)
  list(TRANSFORM arg_COMMAND REPLACE "^\\$<TARGET_FILE:(.*)>$" "\\1")
  foreach(target runs ${labels})
    if(NOT TARGET ${target})
      add_custom_target(${target})
    endif()
    foreach(program ${arg_COMMAND})
      if(TARGET ${program})
        add_dependencies(${target} ${program})
      endif()
    endforeach()
  endforeach()
endfunction()

# tilwin_pytest_run(RUN [OPTION ...]): the same for the Python tests of this folder.
function(tilwin_pytest_run run)
  # The python3 that comes first may be one without pytest.
  find_program(PYTEST NAMES pytest-3 pytest REQUIRED)
  tilwin_test_run(${run} COMMAND ${PYTEST} -p no:cacheprovider --rootdir=${CMAKE_CURRENT_SOURCE_DIR}
    --junit-xml=${CMAKE_BINARY_DIR}/results/${run}.xml ${ARGN} ${CMAKE_CURRENT_SOURCE_DIR})
endfunction()
