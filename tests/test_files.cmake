# Fails when a source file has no unit test: utils/timer.cpp wants tests/unit/utils/timer_test.cpp,
# and so does a header that stands alone. Also when a test file or an exception has no source.
#   cmake -P tests/test_files.cmake
cmake_minimum_required(VERSION 3.21)
get_filename_component(root ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)

set(exceptions
  utils/fwd             # names of types, tested where they are defined
  interpreter/builtins  # declared there, defined and tested as types/builtins
)

set(sources)
foreach(folder utils interpreter types)
  file(GLOB files RELATIVE ${root} ${root}/${folder}/*.h ${root}/${folder}/*.cpp)
  list(TRANSFORM files REPLACE "\\.(h|cpp)$" "")
  list(APPEND sources ${files})
endforeach()
list(REMOVE_DUPLICATES sources)

set(faults)
foreach(source ${sources})
  set(has_test FALSE)
  if(EXISTS ${root}/tests/unit/${source}_test.cpp)
    set(has_test TRUE)
  endif()
  if(source IN_LIST exceptions AND has_test)
    list(APPEND faults "${source} has a test and needs no exception")
  elseif(NOT source IN_LIST exceptions AND NOT has_test)
    list(APPEND faults "tests/unit/${source}_test.cpp is missing")
  endif()
endforeach()
foreach(exception ${exceptions})
  if(NOT exception IN_LIST sources)
    list(APPEND faults "the exception ${exception} is no source file")
  endif()
endforeach()

# A long test may go on in further files: brackets_test.cpp, brackets_long_test.cpp.
file(GLOB_RECURSE tests RELATIVE ${root}/tests/unit ${root}/tests/unit/*_test.cpp)
foreach(test ${tests})
  string(REGEX REPLACE "_test\\.cpp$" "" name ${test})
  while(NOT name IN_LIST sources AND name MATCHES "/[^/]*_")
    string(REGEX REPLACE "_[^_/]*$" "" name ${name})
  endwhile()
  if(NOT name IN_LIST sources)
    list(APPEND faults "tests/unit/${test} tests no source file")
  endif()
endforeach()

if(faults)
  list(JOIN faults "\n  " text)
  message(FATAL_ERROR "Source and unit tests do not match:\n  ${text}")
endif()
