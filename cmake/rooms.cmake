# One room of the house: a static library of every source file in src/<name>.

set(ORVENT_ROOT ${CMAKE_CURRENT_LIST_DIR}/..)

# Forty programs are linked after a change in a low room; a quick linker is taken where there is one.
find_program(ORVENT_MOLD mold)
if(ORVENT_MOLD AND PROJECT_IS_TOP_LEVEL)
  add_link_options(-fuse-ld=mold)
endif()

function(orvent_options target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # False alarms on text + text.
    target_compile_options(${target} PRIVATE -Wno-restrict
      $<$<CONFIG:Release>:-Wno-stringop-overflow> $<$<CONFIG:Release>:-Wno-array-bounds>)
  endif()
  if(ORVENT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(ORVENT_SANITIZE)
    # The sanitizers' own code makes the compiler see uninitialized values where there are none.
    target_compile_options(${target} PUBLIC -fsanitize=address,undefined -fno-sanitize-recover=all
      -Wno-maybe-uninitialized)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()

# Sources of a room are compiled several in one go: the headers they share are most of the work. So names of a file's own
# (in its unnamed namespace) are unique in their room.
function(orvent_together target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
endfunction()

# Code of tests and of the tour runs for moments and is compiled often, so it is not optimised; what it plays is.
function(orvent_quick target)
  target_compile_options(${target} PRIVATE $<$<CONFIG:RelWithDebInfo>:-O0>)
endfunction()

function(orvent_room name)
  file(GLOB sources CONFIGURE_DEPENDS ${ORVENT_ROOT}/src/${name}/*.cpp)
  add_library(orvent_${name} STATIC ${sources})
  add_library(orvent::${name} ALIAS orvent_${name})
  target_include_directories(orvent_${name} PUBLIC ${ORVENT_ROOT}/src)
  list(TRANSFORM ARGN PREPEND orvent_)
  target_link_libraries(orvent_${name} PUBLIC ${ARGN})
  orvent_options(orvent_${name})
  orvent_together(orvent_${name})
endfunction()

# The rooms of the logic from the bottom of the house to its top; an arrow may only run down.
function(orvent_logic)
  orvent_room(platform)
  orvent_room(layout)
  orvent_room(rules platform)
  orvent_room(forms platform)
  orvent_room(entities platform)
  orvent_room(canvas entities layout)
  orvent_room(links canvas)
  orvent_room(zoom links)
  orvent_room(history links)
  orvent_room(exchange links forms)
  find_package(nlohmann_json REQUIRED GLOBAL)
  target_link_libraries(orvent_exchange PRIVATE nlohmann_json::nlohmann_json)
  orvent_room(repository links forms)
  orvent_room(statements rules links forms)
  orvent_room(program statements)
  orvent_room(sql program)
  orvent_room(run sql)
  orvent_room(analysis links forms)
  orvent_room(editors zoom repository statements)
  orvent_room(shell history exchange repository statements program sql run analysis editors)
  set_source_files_properties(${ORVENT_ROOT}/src/shell/program_version.cpp TARGET_DIRECTORY orvent_shell PROPERTIES
    COMPILE_DEFINITIONS "ORVENT_VERSION=\"${ORVENTII_VERSION}\"" SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()
