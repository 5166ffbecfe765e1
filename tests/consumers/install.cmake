# Installs a build below a prefix that is made new. With -D source=<tree>, first builds the library
# and the program from it, unoptimised and as a unity build, which is quicker.
#   cmake -D build=<directory> -D prefix=<directory>
#         [-D source=<tree> -D compiler=<c++> -D options=<of cmake>] -P install.cmake
cmake_minimum_required(VERSION 3.21)

function(run)
  execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(source)
  run(${CMAKE_COMMAND} -S ${source} -B ${build} -DCMAKE_BUILD_TYPE=Debug -DCMAKE_UNITY_BUILD=ON
    -DCMAKE_CXX_COMPILER=${compiler} ${options})
  run(${CMAKE_COMMAND} --build ${build})
endif()
file(REMOVE_RECURSE ${prefix} ${prefix}.elsewhere)
run(${CMAKE_COMMAND} --install ${build} --prefix ${prefix}.elsewhere)
file(RENAME ${prefix}.elsewhere ${prefix})

# The installed program runs from where it is, and finds its library there.
file(WRITE ${prefix}/script.txt "1+1\n")
execute_process(COMMAND ${prefix}/bin/mirlow script.txt WORKING_DIRECTORY ${prefix}
  OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
if(NOT output STREQUAL "\tScalar : 2\n")
  message(FATAL_ERROR "the installed program printed: ${output}")
endif()
