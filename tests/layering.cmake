# Reads every #include of the program and its library, and fails on one that points up:
#   main -> types -> interpreter -> utils
# To be run as: cmake -D root=<tree> -P layering.cmake
set(layers utils interpreter types) # the lowest first

file(GLOB files RELATIVE ${root} ${root}/main.cpp ${root}/*/*.h ${root}/*/*.cpp)
list(FILTER files INCLUDE REGEX "^(main\\.cpp|utils/|interpreter/|types/)")
if(NOT files)
  message(FATAL_ERROR "nothing to read in ${root}")
endif()

# The place of a file's folder among the layers; main.cpp is above all, anything unknown is too.
function(find_layer file result)
  string(REGEX REPLACE "/.*" "" folder ${file})
  list(FIND layers ${folder} place)
  if(place EQUAL -1)
    list(LENGTH layers place)
  endif()
  set(${result} ${place} PARENT_SCOPE)
endfunction()

foreach(file IN LISTS files)
  find_layer(${file} layer)
  file(STRINGS ${root}/${file} includes REGEX "^ *# *include *\"")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^[^\"]*\"([^\"]*)\".*" "\\1" included ${include})
    find_layer(${included} included_layer)
    if(included_layer GREATER layer)
      message(SEND_ERROR "${file} points up to ${included}")
    endif()
  endforeach()
endforeach()
