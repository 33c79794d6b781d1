# SPDX-License-Identifier: MIT
# How a folder becomes a target. A library sees the headers of its own folder and of the folders it
# names after DEPENDS, and no others: an include that breaks the layers does not compile.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

option(KELVARIN_PRECOMPILE "Compile the headers of the toolkit and of the tests' library once for all" ON)

find_program(KELVARIN_CCACHE ccache)
if(KELVARIN_CCACHE)
  # Sources that use a precompiled header are kept as well; -fpch-preprocess below belongs to that.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    "${KELVARIN_CCACHE}")
endif()

option(KELVARIN_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(KELVARIN_SANITIZE_THREADS "Build with the thread sanitizer" OFF)
option(KELVARIN_HARDEN "Build with the compiler's and linker's protection against overwritten memory" OFF)
option(KELVARIN_CHECKED "Poison work arrays and compare the fast evaluation with the plain walk" OFF)
option(KELVARIN_FUZZ "Build the fuzz targets (clang only)" OFF)

add_library(kelvarin_flags INTERFACE)
target_compile_options(kelvarin_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  # One formula gives one result: no fused operations, whatever the processor offers.
  -ffp-contract=off
  # Nothing reads errno behind a mathematical function; without it a square root is one instruction.
  -fno-math-errno)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND KELVARIN_PRECOMPILE)
  target_compile_options(kelvarin_flags INTERFACE -fpch-preprocess)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # False alarms of this compiler in the string operations of the standard library.
  target_compile_options(kelvarin_flags INTERFACE
    -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
if(KELVARIN_SANITIZE)
  target_compile_options(kelvarin_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kelvarin_flags INTERFACE -fsanitize=address,undefined)
endif()
if(KELVARIN_SANITIZE_THREADS)
  target_compile_options(kelvarin_flags INTERFACE -fsanitize=thread)
  target_link_options(kelvarin_flags INTERFACE -fsanitize=thread)
endif()
if(KELVARIN_FUZZ)
  # The libraries tell the fuzzer which of their branches were taken; the targets bring its main program.
  target_compile_options(kelvarin_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(KELVARIN_HARDEN)
  # What a file or a text from elsewhere might overwrite ends the program instead of steering it.
  target_compile_options(kelvarin_flags INTERFACE
    -D_FORTIFY_SOURCE=2 -fstack-protector-strong -fstack-clash-protection -fcf-protection)
  target_link_options(kelvarin_flags INTERFACE -Wl,-z,relro,-z,now)
endif()
if(KELVARIN_CHECKED)
  target_compile_definitions(kelvarin_flags INTERFACE KELVARIN_CHECKED=1)
endif()

# What everything with windows is compiled with.
add_library(kelvarin_window_flags INTERFACE)
target_compile_definitions(kelvarin_window_flags INTERFACE QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH)
target_link_libraries(kelvarin_window_flags INTERFACE Qt6::Widgets Qt6::PrintSupport Qt6::Svg)

# What the sources of tests are compiled with: those that are looked at with sanitizers are the libraries, and the tests
# themselves, full of templates, took most of a build while they were optimized and checked for undefined behaviour too.
add_library(kelvarin_test_flags INTERFACE)
# The toolkit's test library names each target's own folders, and a macro that differs keeps a precompiled header from use.
target_compile_options(kelvarin_test_flags INTERFACE -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
if(KELVARIN_SANITIZE)
  target_compile_options(kelvarin_test_flags INTERFACE -O0 -fno-sanitize=undefined)
endif()

include(precompiled)

# kelvarin_headers(TARGET VISIBILITY FOLDER...): lets a target see the headers of the named folders, as "nle/x.h", and
# of no others. Each folder of src/ has a view of its own, with a link to each of its headers.
function(kelvarin_headers target visibility)
  foreach(folder IN LISTS ARGN)
    string(REPLACE "/" "_" name "${folder}")
    target_include_directories(${target} ${visibility} "${PROJECT_BINARY_DIR}/include/${name}")
  endforeach()
endfunction()

# kelvarin_view(FOLDER HEADER...): makes the view of a folder anew, so that it holds no link to a header that has gone.
function(kelvarin_view folder)
  string(REPLACE "/" "_" name "${folder}")
  set(view "${PROJECT_BINARY_DIR}/include/${name}")
  set(wanted "")
  foreach(header IN LISTS ARGN)
    file(RELATIVE_PATH path "${PROJECT_SOURCE_DIR}/src" "${header}")
    get_filename_component(parent "${view}/${path}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    if(NOT EXISTS "${view}/${path}")
      file(CREATE_LINK "${header}" "${view}/${path}" SYMBOLIC)
    endif()
    list(APPEND wanted "${view}/${path}")
  endforeach()
  file(GLOB_RECURSE have LIST_DIRECTORIES false "${view}/*.h")
  list(REMOVE_ITEM have ${wanted})
  if(have)
    file(REMOVE ${have})
  endif()
endfunction()

# kelvarin_library(nle/equations DEPENDS expr platform): a static library kelvarin_nle_equations of all sources in the
# current folder, whose headers are included as "nle/equations/x.h". It sees the headers of the folders that it names and
# nothing behind them: an include of any other does not compile. Subfolders are other libraries, except those named after
# SORTED_IN, which only put the sources of this one in order.
function(kelvarin_library folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WINDOWS" "" "SORTED_IN;DEPENDS")
  string(REPLACE "/" "_" name "${folder}")
  set(sources "")
  set(headers "")
  foreach(part IN ITEMS "." LISTS arg_SORTED_IN)
    file(GLOB part_sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${part}/*.cpp")
    file(GLOB part_headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${part}/*.h")
    list(APPEND sources ${part_sources})
    list(APPEND headers ${part_headers})
  endforeach()
  set(target "kelvarin_${name}")
  add_library(${target} STATIC ${sources})
  set_property(GLOBAL APPEND PROPERTY KELVARIN_FOLDERS "${folder}")
  set_property(GLOBAL PROPERTY KELVARIN_DEPENDS_${name} ${arg_DEPENDS})
  kelvarin_view("${folder}" ${headers})
  kelvarin_headers(${target} PRIVATE "${folder}" ${arg_DEPENDS})
  target_link_libraries(${target} PUBLIC kelvarin_flags)
  foreach(dependency IN LISTS arg_DEPENDS)
    string(REPLACE "/" "_" dependency "${dependency}")
    target_link_libraries(${target} PUBLIC kelvarin_${dependency})
  endforeach()
  if(arg_WINDOWS)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_link_libraries(${target} PUBLIC kelvarin_window_flags)
    kelvarin_precompiled(${target} windows)
  else()
    kelvarin_precompiled(${target} core)
  endif()
endfunction()

# kelvarin_window_library(nle/window DEPENDS nle desktop): the same for a folder of windows, which may use the
# toolkit.
function(kelvarin_window_library folder)
  kelvarin_library(${folder} WINDOWS ${ARGN})
endfunction()

# kelvarin_program(kelvarin SOURCE... DEPENDS app): a program, which sees the headers of the folders that it names.
function(kelvarin_program target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "EXCLUDE_FROM_ALL" "" "DEPENDS")
  set(excluded "")
  if(arg_EXCLUDE_FROM_ALL)
    set(excluded EXCLUDE_FROM_ALL)
  endif()
  add_executable(${target} ${excluded} ${arg_UNPARSED_ARGUMENTS})
  kelvarin_headers(${target} PRIVATE ${arg_DEPENDS})
  foreach(dependency IN LISTS arg_DEPENDS)
    string(REPLACE "/" "_" dependency "${dependency}")
    target_link_libraries(${target} PRIVATE kelvarin_${dependency})
  endforeach()
endfunction()

# kelvarin_test(nle DEPENDS nle shell): a program kelvarin_nle_tests of all sources in the current
# folder, each of its cases a test of CTest. With WINDOWS the tests act on windows, without a screen; with ON_SCREEN on
# windows of an X server with a window manager, both of their own, which is where placement and focus show.
function(kelvarin_test folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WINDOWS;ON_SCREEN" "" "SORTED_IN;DEPENDS")
  string(REPLACE "/" "_" name "${folder}")
  set(sources "")
  foreach(part IN ITEMS "." LISTS arg_SORTED_IN)
    file(GLOB part_sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${part}/*.cpp")
    list(APPEND sources ${part_sources})
  endforeach()
  set(target "kelvarin_${name}_tests")
  kelvarin_program(${target} ${sources} DEPENDS ${arg_DEPENDS})
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests" "${CMAKE_CURRENT_SOURCE_DIR}")
  target_compile_definitions(${target} PRIVATE
    KELVARIN_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
    KELVARIN_GOLDEN="${PROJECT_SOURCE_DIR}/tests/golden"
    KELVARIN_EXAMPLES="${PROJECT_SOURCE_DIR}/examples"
    KELVARIN_LOCALES="${PROJECT_BINARY_DIR}/tests/locales"
    KELVARIN_BIN="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  add_dependencies(${target} kelvarin_test_locale)
  if(arg_WINDOWS OR arg_ON_SCREEN)
    if(arg_ON_SCREEN)
      target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests/support/main_on_screen.cpp")
    else()
      target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests/support/main_offscreen.cpp")
    endif()
    target_link_libraries(${target} PRIVATE kelvarin_window_testing kelvarin_test_flags)
    kelvarin_precompiled(${target} window_tests)
  else()
    target_link_libraries(${target} PRIVATE GTest::gmock_main kelvarin_test_flags)
    kelvarin_precompiled(${target} tests)
  endif()
  target_link_libraries(${target} PRIVATE rapidcheck rapidcheck_gtest)
  # What a person has set for the desktop does not reach the tests: neither screen nor language nor fonts.
  gtest_discover_tests(${target} DISCOVERY_TIMEOUT 120
    PROPERTIES TIMEOUT 300
    ENVIRONMENT "LC_ALL=C.UTF-8;XDG_CONFIG_HOME=${PROJECT_BINARY_DIR}/test-config;QT_QPA_PLATFORM=offscreen;QT_FONT_DPI=96;FONTCONFIG_FILE=${PROJECT_BINARY_DIR}/tests/fonts.conf")
endfunction()
