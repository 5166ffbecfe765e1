# Reads every #include of the program and its library, and fails on one that points up:
#   main -> c -> types -> interpreter -> utils
# Headers that are installed include each other alone, by relative paths, which no host's header can
# get in the way of.
# To be run as: cmake -D root=<tree> -P layering.cmake
cmake_minimum_required(VERSION 3.21)
set(layers utils interpreter types c) # the lowest first

file(GLOB files RELATIVE ${root} ${root}/main.cpp ${root}/*/*.h ${root}/*/*.cpp)
list(FILTER files INCLUDE REGEX "^(main\\.cpp|utils/|interpreter/|types/|c/)")
if(NOT files)
  message(FATAL_ERROR "nothing to read in ${root}")
endif()
include(${root}/cmake/public_headers.cmake)
list(APPEND public_headers interpreter/version.h)

# The place of a file's folder among the layers; main.cpp is above all, anything unknown is too.
function(find_layer file result)
  string(REGEX REPLACE "/.*" "" folder ${file})
  list(FIND layers ${folder} place)
  if(place EQUAL -1)
    list(LENGTH layers place)
  endif()
  set(${result} ${place} PARENT_SCOPE)
endfunction()

# The path in the tree of what a file includes, and whether it is given relative to the file.
function(find_included file text included is_relative)
  set(relative OFF)
  if(text MATCHES "^\\.\\./")
    set(relative ON)
    string(REGEX REPLACE "^\\.\\./" "" text ${text})
  else()
    string(REGEX REPLACE "[^/]+$" "${text}" beside ${file})
    if(EXISTS ${root}/${beside})
      set(relative ON)
      set(text ${beside})
    endif()
  endif()
  set(${included} ${text} PARENT_SCOPE)
  set(${is_relative} ${relative} PARENT_SCOPE)
endfunction()

foreach(file IN LISTS files)
  find_layer(${file} layer)
  file(STRINGS ${root}/${file} includes REGEX "^ *# *include *\"")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^[^\"]*\"([^\"]*)\".*" "\\1" text ${include})
    find_included(${file} ${text} included is_relative)
    find_layer(${included} included_layer)
    if(included_layer GREATER layer)
      message(SEND_ERROR "${file} points up to ${included}")
    endif()
    if(file IN_LIST public_headers AND NOT included IN_LIST public_headers)
      message(SEND_ERROR "${file} is installed and ${included} is not")
    elseif(file IN_LIST public_headers AND NOT is_relative)
      message(SEND_ERROR "${file} is installed and leaves open where ${included} is")
    endif()
  endforeach()
endforeach()
