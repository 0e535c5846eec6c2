# How a folder of this project becomes a target. Every folder of src/ is one static library, every folder of
# tests/ one test program; sources are found, not listed, so that adding a file is adding a file.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
      CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE})
endif()

find_program(LLD ld.lld)
if(LLD)
  add_link_options(-fuse-ld=lld)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
                    -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # ccache can only reuse a precompiled header that the preprocessor mentions.
  add_compile_options(-fpch-preprocess)
  # With optimisation GCC 12 sees overlaps in joined std::strings where there are none (GCC bug 105651).
  add_compile_options($<$<CONFIG:Release>:-Wno-restrict> $<$<CONFIG:Release>:-Wno-array-bounds>
                      $<$<CONFIG:Release>:-Wno-stringop-overflow>
                      $<$<CONFIG:Release>:-Wno-stringop-overread>)
endif()

# The standard headers that nearly every file wants, compiled once for each room.
set(QUILLON_STANDARD_HEADERS
    <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <stdexcept> <string> <string_view>
    <unordered_map> <utility> <variant> <vector>)

# quillon_room(NAME DIR [LINK lib...]): the static library NAME from the sources of DIR, not of the folders below
# unless they are named by BELOW.
function(quillon_room name)
  cmake_parse_arguments(ROOM "" "" "BELOW;LINK;PRIVATE" ${ARGN})
  set(patterns ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  foreach(folder ${ROOM_BELOW})
    list(APPEND patterns ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(NOT sources)
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} INTERFACE ${ROOM_LINK} ${ROOM_PRIVATE})
    return()
  endif()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_precompile_headers(${name} PRIVATE ${QUILLON_STANDARD_HEADERS})
  target_link_libraries(${name} PUBLIC ${ROOM_LINK} PRIVATE ${ROOM_PRIVATE})
endfunction()

# quillon_tests(NAME LINK lib...): a GoogleTest program from the .cpp files of this folder; every case is one ctest.
function(quillon_tests name)
  cmake_parse_arguments(TESTS "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE QUILLON_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                                             QUILLON_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  target_precompile_headers(${name} PRIVATE <gtest/gtest.h> ${QUILLON_STANDARD_HEADERS})
  target_link_libraries(${name} PRIVATE ${TESTS_LINK} GTest::gtest_main GTest::gmock)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()

# quillon_fuzz(NAME FILE... LINK lib...): a libFuzzer target.
function(quillon_fuzz name)
  cmake_parse_arguments(FUZZ "" "" "LINK" ${ARGN})
  add_executable(${name} ${FUZZ_UNPARSED_ARGUMENTS})
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name} PRIVATE ${FUZZ_LINK})
endfunction()
