# TilwinIcu: Unicode. In the program itself on macOS, as no Mac has it for programs to link.

block()
  if(APPLE)
    set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
  endif()
  find_package(ICU REQUIRED COMPONENTS data i18n uc)
endblock()

add_library(TilwinIcu INTERFACE)
target_link_libraries(TilwinIcu INTERFACE ICU::i18n ICU::uc $<$<PLATFORM_ID:Darwin>:ICU::data>)
