# One target a folder. Sources are found by name, so a new file needs no entry here.

find_program(CCACHE ccache)
if(CCACHE)
  # Build folders share what is compiled, and what is compiled with a precompiled header is kept too.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros
                                  ${CCACHE})
endif()

add_library(ovalia_flags INTERFACE)
target_compile_options(ovalia_flags INTERFACE -Wall -Wextra -Wpedantic -Werror)
# g++ 12 sees overlapping and oversized copies, when it optimises, where a literal is put in front of a string.
target_compile_options(
  ovalia_flags INTERFACE "$<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict;-Wno-stringop-overflow>")
target_compile_options(ovalia_flags INTERFACE "$<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>")
target_include_directories(ovalia_flags INTERFACE ${PROJECT_SOURCE_DIR})
if(OVALIA_SANITIZE)
  target_compile_options(ovalia_flags INTERFACE -fsanitize=${OVALIA_SANITIZE} -fno-omit-frame-pointer
                         -fno-sanitize-recover=all)
  target_link_options(ovalia_flags INTERFACE -fsanitize=${OVALIA_SANITIZE})
endif()

# ovalia_library(NAME [FOLDERS sub...] [LINK target...]): the static library ovalia_NAME of this folder's
# sources and those of the named subfolders.
function(ovalia_library name)
  cmake_parse_arguments(arg "" "" "FOLDERS;LINK" ${ARGN})
  set(patterns ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  foreach(folder IN LISTS arg_FOLDERS)
    list(APPEND patterns ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(ovalia_${name} STATIC ${sources})
  target_link_libraries(ovalia_${name} PUBLIC ovalia_flags ${arg_LINK})
endfunction()

# ovalia_tests(NAME [LINK target...]): the test program of tests/NAME, each test known to ctest.
function(ovalia_tests name)
  cmake_parse_arguments(arg "" "" "LINK;PROPERTIES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(test_${name} ${sources})
  target_link_libraries(test_${name} PRIVATE ${arg_LINK} GTest::gmock_main)
  target_precompile_headers(test_${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
  gtest_discover_tests(test_${name} TEST_PREFIX "${name}/" DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 300 ${arg_PROPERTIES})
endfunction()
