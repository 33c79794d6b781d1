# SPDX-License-Identifier: MIT
# Asks the compiler, with the include path of each folder of src/, which headers of every other folder it finds; and
# holds the named folders against the layers.
cmake_minimum_required(VERSION 3.25)

# A folder may name those of the layers before its own. Folders of one layer don't know each other, except where a
# folder of windows stands on another one.
set(layers
  "platform"
  "numeric expr"
  "shell help"
  "graph nle/equations reg/table"
  "nle deq opt leq reg tools"
  "kinds"
  "batch desktop"
  "shell/window help/window help/make"
  "tools/window nle/equations/window graph/window"
  "reg/window"
  "nle/window leq/window deq/window opt/window"
  "app")

set(faults "")

function(layer_of folder result)
  set(number 0)
  foreach(layer IN LISTS layers)
    string(REPLACE " " ";" names "${layer}")
    if(folder IN_LIST names)
      set(${result} ${number} PARENT_SCOPE)
      return()
    endif()
    math(EXPR number "${number} + 1")
  endforeach()
  message(FATAL_ERROR "${folder} stands in no layer of ${CMAKE_SCRIPT_MODE_FILE}")
endfunction()

# A header of the folder itself, not of its subfolders; with sorted subfolders, any of theirs.
function(a_header_of folder result)
  file(GLOB headers RELATIVE "${SOURCE}" "${SOURCE}/${folder}/*.h")
  list(GET headers 0 header)
  set(${result} "${header}" PARENT_SCOPE)
endfunction()

# Whether a source with that include passes the compiler's preprocessor.
function(compiles header directories result)
  set(source "${SCRATCH}/include_rule.cpp")
  file(WRITE "${source}" "#include \"${header}\"\n")
  set(paths "")
  foreach(directory IN LISTS directories)
    list(APPEND paths "-I${directory}")
  endforeach()
  execute_process(COMMAND "${COMPILER}" -std=c++20 -fsyntax-only -M ${paths} "${source}"
    RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE errors)
  if(status EQUAL 0)
    set(${result} TRUE PARENT_SCOPE)
  elseif(errors MATCHES "fatal error: ${header}: No such file")
    set(${result} FALSE PARENT_SCOPE)
  else()
    # Found, but something behind it is missing.
    set(${result} BROKEN PARENT_SCOPE)
    message(STATUS "${errors}")
  endif()
endfunction()

file(STRINGS "${TABLE}" rows)
set(folders "")
foreach(row IN LISTS rows)
  string(REPLACE "|" ";" fields "${row}")
  list(GET fields 0 folder)
  list(APPEND folders "${folder}")
endforeach()

foreach(row IN LISTS rows)
  string(REPLACE "|" ";" fields "${row}")
  list(GET fields 0 folder)
  list(GET fields 1 named)
  list(GET fields 2 directories)
  string(REPLACE " " ";" named "${named}")
  string(REPLACE "*" ";" directories "${directories}")
  layer_of("${folder}" own_layer)
  foreach(other IN LISTS folders)
    a_header_of("${other}" header)
    compiles("${header}" "${directories}" seen)
    if(other STREQUAL folder OR other IN_LIST named)
      if(NOT seen STREQUAL "TRUE")
        list(APPEND faults "${folder} names ${other}, but ${header} does not compile there")
      endif()
    elseif(seen)
      list(APPEND faults "${folder} does not name ${other}, but sees ${header}")
    endif()
  endforeach()
  foreach(other IN LISTS named)
    layer_of("${other}" layer)
    if(NOT layer LESS own_layer)
      list(APPEND faults "${folder} names ${other}, which does not stand below it")
    endif()
  endforeach()
endforeach()

if(faults)
  string(JOIN "\n  " text ${faults})
  message(FATAL_ERROR "The rule of includes is broken:\n  ${text}")
endif()
