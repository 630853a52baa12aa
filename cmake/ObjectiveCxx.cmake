# Objective-C++ for the adapters to macOS. There it is built with the system's own frameworks. Elsewhere clang builds it for
# GNUstep's Foundation and AppKit, and tests/macos has what those and the C interfaces lack, so that the same sources run.

option(TILWIN_MACOS "Build the adapters to macOS" ${APPLE})
if(NOT TILWIN_MACOS)
  return()
endif()

if(NOT APPLE)
  find_program(CMAKE_OBJCXX_COMPILER clang++ REQUIRED)
endif()
# Each compiler sets these for all languages; the precompiled headers are those of C++.
set(extension_of_cxx ${CMAKE_PCH_EXTENSION})
set(prologue_of_cxx ${CMAKE_PCH_PROLOGUE})
enable_language(OBJCXX)
set(CMAKE_PCH_EXTENSION ${extension_of_cxx})
set(CMAKE_PCH_PROLOGUE ${prologue_of_cxx})
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)
set(CMAKE_OBJCXX_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})
set(CMAKE_OBJCXX_FLAGS ${CMAKE_CXX_FLAGS})
set(CMAKE_OBJCXX_FLAGS_DEBUG ${CMAKE_CXX_FLAGS_DEBUG})

# TilwinCocoa: what a source needs that includes a header of macOS.
add_library(TilwinCocoa INTERFACE)
target_link_libraries(TilwinCocoa INTERFACE TilwinBuildRules)
if(APPLE)
  target_compile_options(TilwinCocoa INTERFACE $<$<COMPILE_LANGUAGE:OBJCXX>:-fno-objc-arc>)
  target_link_libraries(TilwinCocoa INTERFACE
    "-framework AppKit" "-framework ApplicationServices" "-framework Carbon" "-framework ServiceManagement")
else()
  # The headers of GCC's Objective-C runtime alone: beside them are GCC's own intrinsics, which are not for clang.
  execute_process(COMMAND g++ -print-file-name=include OUTPUT_VARIABLE gcc_headers OUTPUT_STRIP_TRAILING_WHITESPACE)
  set(objc_headers ${CMAKE_BINARY_DIR}/objc-headers)
  file(MAKE_DIRECTORY ${objc_headers})
  file(CREATE_LINK ${gcc_headers}/objc ${objc_headers}/objc SYMBOLIC)
  set(gnustep_headers /usr/include/GNUstep)
  set(stand_in_headers ${CMAKE_SOURCE_DIR}/tests/macos/c ${CMAKE_SOURCE_DIR}/tests/macos/gnustep)

  target_include_directories(TilwinCocoa INTERFACE ${stand_in_headers})
  target_include_directories(TilwinCocoa SYSTEM INTERFACE ${gnustep_headers} ${objc_headers})
  target_compile_options(TilwinCocoa INTERFACE $<$<COMPILE_LANGUAGE:OBJCXX>:
    -fobjc-runtime=gcc -fblocks -fexceptions -fobjc-exceptions -fconstant-string-class=NSConstantString
    -D_NATIVE_OBJC_EXCEPTIONS -DGNUSTEP -Werror=objc-method-access>)
  # BlocksRuntime first: GNUstep's base library has an older one.
  target_link_libraries(TilwinCocoa INTERFACE BlocksRuntime gnustep-gui gnustep-base objc)
endif()

# tilwin_joined(TARGET): where neighbouring sources are compiled as one, does that with the target's Objective-C++ too, which
# CMake leaves apart: AppKit's headers take longer to read than most sources.
function(tilwin_joined target)
  get_target_property(sources ${target} SOURCES)
  set(joined ${sources})
  list(FILTER joined INCLUDE REGEX "^[a-z].*[.]mm$")
  if(NOT CMAKE_UNITY_BUILD OR NOT joined)
    return()
  endif()
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/joined-${target})
  # Lint looks for its rules above the file that it reads.
  configure_file(.clang-tidy ${folder}/.clang-tidy COPYONLY)
  set(count 0)
  foreach(source ${joined})
    cmake_path(ABSOLUTE_PATH source)
    math(EXPR batch "${count} / 8")
    math(EXPR count "${count} + 1")
    string(APPEND content_${batch} "#include \"${source}\"\n")
  endforeach()
  foreach(number RANGE ${batch})
    file(CONFIGURE OUTPUT ${folder}/${number}.mm CONTENT "${content_${number}}" @ONLY)
    target_sources(${target} PRIVATE ${folder}/${number}.mm)
  endforeach()
  set_source_files_properties(${joined} PROPERTIES HEADER_FILE_ONLY ON)
endfunction()

# tilwin_macos_library(NAME SOURCES a.mm b.cpp ... [LINK TargetA ...] [READ c.mm ...]): a static library of adapters to
# macOS. READ: what else is to be read as on macOS.
function(tilwin_macos_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK;READ" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC TilwinCocoa ${arg_LINK})
  tilwin_as_on_macos(${name} ${arg_READ})
  tilwin_joined(${name})
endfunction()

# tilwin_macos_test_program(NAME SOURCES a.mm b.cpp ... [LINK TargetA ...]): a test program that uses them, put at the top of
# the build folder.
function(tilwin_macos_test_program name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC TilwinCocoa ${arg_LINK})
  target_compile_options(${name} PRIVATE "SHELL:-include ${CMAKE_SOURCE_DIR}/tests/Printing.h")
  # Linked as C++, so that one compiler's sanitizers serve the sources of both.
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR} LINKER_LANGUAGE CXX)
  tilwin_macos_linted(${name})
  tilwin_joined(${name})
endfunction()

# tilwin_macos_linted(TARGET): scripts/check lints the target's sources.
function(tilwin_macos_linted target)
  set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${lint}" OBJCXX_CLANG_TIDY "${lint}"
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
endfunction()

# tilwin_as_on_macos(TARGET [FURTHER ...]): scripts/check reads each source of the target, each further one, and each header
# below its folder as clang does on macOS. The static analyser gets several sources at once, as most of its time is spent on
# AppKit's headers too.
function(tilwin_as_on_macos target)
  tilwin_macos_linted(${target})
  if(APPLE OR NOT TILWIN_LINT)
    return()
  endif()
  set(read ${CMAKE_SOURCE_DIR}/scripts/lib/as-on-macos)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/as-on-macos)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  get_target_property(sources ${target} SOURCES)
  set(count 0)
  foreach(source ${sources} ${ARGN} ${headers})
    cmake_path(ABSOLUTE_PATH source)
    cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE name)
    set(stamp ${folder}/${name})
    cmake_path(GET stamp PARENT_PATH stamp_folder)
    file(MAKE_DIRECTORY ${stamp_folder})
    add_custom_command(OUTPUT ${stamp}
      COMMAND ${read} --compile ${source} ${stamp}.d ${stamp}
      COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
      DEPENDS ${source} ${read} DEPFILE ${stamp}.d VERBATIM COMMENT "Reading ${name} as on macOS")
    list(APPEND stamps ${stamp})
    if(NOT source MATCHES "[.]h$")
      math(EXPR batch "${count} / 8")
      math(EXPR count "${count} + 1")
      string(APPEND content_${batch} "#include \"${source}\"\n")
      list(APPEND stamps_${batch} ${stamp})
    endif()
  endforeach()
  foreach(number RANGE ${batch})
    file(CONFIGURE OUTPUT ${folder}/${number}.mm CONTENT "${content_${number}}" @ONLY)
    add_custom_command(OUTPUT ${folder}/${number}
      COMMAND ${read} --analyse ${folder}/${number}.mm
      COMMAND ${CMAKE_COMMAND} -E touch ${folder}/${number}
      DEPENDS ${folder}/${number}.mm ${stamps_${number}} VERBATIM COMMENT "Analysing ${target} as on macOS, part ${number}")
    list(APPEND stamps ${folder}/${number})
  endforeach()
  add_custom_target(${target}AsOnMacOS ALL DEPENDS ${stamps})
endfunction()
