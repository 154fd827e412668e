# Files that are part of a program: compiled as bytes, found by name without any file beside the program.
#
#   orvent_built_in(target name file [name file]...)
#
# makes the source of `app::builtInFile` for them.
function(orvent_built_in target)
  set(bytes "")
  set(rows "")
  set(number 0)
  while(ARGN)
    list(POP_FRONT ARGN name file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(READ ${file} hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," hex "${hex}")
    string(APPEND bytes "constexpr unsigned char kFile${number}[] = {${hex}};\n")
    string(APPEND rows "    {\"${name}\", kFile${number}, sizeof kFile${number}},\n")
    math(EXPR number "${number} + 1")
  endwhile()
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${target}_built_in.cpp)
  file(CONFIGURE OUTPUT ${source} @ONLY CONTENT [[
#include "app/built_in.h"

namespace orvent::app {

namespace {

@bytes@
constexpr BuiltInFile kFiles[] = {
@rows@};

}  // namespace

std::span<const BuiltInFile> builtInFiles() {
    return kFiles;
}

}  // namespace orvent::app
]])
  target_sources(${target} PRIVATE ${source})
endfunction()
