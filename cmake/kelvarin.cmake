# SPDX-License-Identifier: MIT
# How a folder becomes a target. A library sees the headers of its own folder and of the folders it
# names after DEPENDS, and no others: an include that breaks the layers does not compile.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

find_program(KELVARIN_CCACHE ccache)
if(KELVARIN_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${KELVARIN_CCACHE}")
endif()

option(KELVARIN_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(KELVARIN_CHECKED "Poison work arrays and compare the fast evaluation with the plain walk" OFF)
option(KELVARIN_FUZZ "Build the fuzz targets (clang only)" OFF)

add_library(kelvarin_flags INTERFACE)
target_compile_options(kelvarin_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  # One formula gives one result: no fused operations, whatever the processor offers.
  -ffp-contract=off
  # Nothing reads errno behind a mathematical function; without it a square root is one instruction.
  -fno-math-errno)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # A false alarm of this compiler in the standard library's own string operations.
  target_compile_options(kelvarin_flags INTERFACE -Wno-restrict)
endif()
if(KELVARIN_SANITIZE)
  target_compile_options(kelvarin_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kelvarin_flags INTERFACE -fsanitize=address,undefined)
endif()
if(KELVARIN_FUZZ)
  # The libraries tell the fuzzer which of their branches were taken; the targets bring its main program.
  target_compile_options(kelvarin_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(KELVARIN_CHECKED)
  target_compile_definitions(kelvarin_flags INTERFACE KELVARIN_CHECKED=1)
endif()

# kelvarin_library(nle/analysis DEPENDS expr platform): a static library kelvarin_nle_analysis of all
# sources in the current folder (not of its subfolders), whose headers are included as "nle/analysis/x.h".
function(kelvarin_library folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "DEPENDS")
  string(REPLACE "/" "_" name "${folder}")
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  set(target "kelvarin_${name}")
  add_library(${target} STATIC ${sources})

  set(view "${PROJECT_BINARY_DIR}/include/${name}")
  get_filename_component(parent "${view}/${folder}" DIRECTORY)
  file(MAKE_DIRECTORY "${parent}")
  if(NOT EXISTS "${view}/${folder}")
    file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${view}/${folder}" SYMBOLIC)
  endif()
  target_include_directories(${target} PUBLIC "${view}")
  target_link_libraries(${target} PUBLIC kelvarin_flags)
  foreach(dependency IN LISTS arg_DEPENDS)
    string(REPLACE "/" "_" dependency "${dependency}")
    target_link_libraries(${target} PUBLIC kelvarin_${dependency})
  endforeach()
endfunction()

# kelvarin_window_library(nle/window DEPENDS nle desktop): the same for a folder of windows, which may use the
# toolkit.
function(kelvarin_window_library folder)
  kelvarin_library(${folder} ${ARGN})
  string(REPLACE "/" "_" name "${folder}")
  set_target_properties(kelvarin_${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(kelvarin_${name} PUBLIC QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH)
  target_link_libraries(kelvarin_${name} PUBLIC Qt6::Widgets Qt6::PrintSupport Qt6::Svg)
endfunction()

# kelvarin_test(nle DEPENDS nle shell): a program kelvarin_nle_tests of all sources in the current
# folder, each of its cases a test of CTest. With WINDOWS the tests act on windows, without a screen.
function(kelvarin_test folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WINDOWS" "" "DEPENDS")
  string(REPLACE "/" "_" name "${folder}")
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  set(target "kelvarin_${name}_tests")
  add_executable(${target} ${sources})
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_compile_definitions(${target} PRIVATE
    KELVARIN_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
    KELVARIN_GOLDEN="${PROJECT_SOURCE_DIR}/tests/golden"
    KELVARIN_EXAMPLES="${PROJECT_SOURCE_DIR}/examples"
    KELVARIN_BIN="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  if(arg_WINDOWS)
    target_link_libraries(${target} PRIVATE kelvarin_window_testing)
  else()
    target_link_libraries(${target} PRIVATE GTest::gmock_main)
  endif()
  target_link_libraries(${target} PRIVATE rapidcheck rapidcheck_gtest)
  foreach(dependency IN LISTS arg_DEPENDS)
    string(REPLACE "/" "_" dependency "${dependency}")
    target_link_libraries(${target} PRIVATE kelvarin_${dependency})
  endforeach()
  gtest_discover_tests(${target} DISCOVERY_TIMEOUT 120
    PROPERTIES TIMEOUT 300
    ENVIRONMENT "LC_ALL=C.UTF-8;XDG_CONFIG_HOME=${PROJECT_BINARY_DIR}/test-config;QT_QPA_PLATFORM=offscreen;QT_FONT_DPI=96")
endfunction()
