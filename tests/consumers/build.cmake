# Builds one consumer in a directory that is made new, and runs it. The kind is a folder beside this
# file, or the path of a project with tests of its own.
#   cmake -D kind=find_package -D source=<tree> -D prefix=<installed> -D directory=<to build in>
#         -D compiler=<c++> -D version=<x.y.z> [-D flags=<of pkg_config>] -P build.cmake
cmake_minimum_required(VERSION 3.21)
set(consumers ${CMAKE_CURRENT_LIST_DIR})
file(REMOVE_RECURSE ${directory})
file(MAKE_DIRECTORY ${directory})

function(run)
  execute_process(COMMAND ${ARGV} WORKING_DIRECTORY ${directory} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(kind STREQUAL "pkg_config")
  set(ENV{PKG_CONFIG_PATH} ${prefix}/${libdir}/pkgconfig)
  separate_arguments(flags)
  run(${consumers}/pkg_config/build.sh ${compiler} ${consumers}/consumer.cpp ${directory}/consumer
    -I${consumers}/host ${flags})
  run(pkg-config --exact-version=${version} mirlow)
elseif(kind STREQUAL "export")
  # Installed where the package of mirlow is not, then found by a project of its own.
  run(${CMAKE_COMMAND} -S ${consumers}/export -B ${directory}/outer -Dway=${flags}
    -DCMAKE_CXX_COMPILER=${compiler} -DCMAKE_PREFIX_PATH=${prefix} -DMIRLOW_SOURCE=${source}
    -DCMAKE_UNITY_BUILD=ON)
  run(${CMAKE_COMMAND} --build ${directory}/outer)
  run(${CMAKE_COMMAND} --install ${directory}/outer --prefix ${directory}/prefix)
  set(ENV{CMAKE_PREFIX_PATH} ${directory}/prefix)
  if(flags STREQUAL "package")
    set(ENV{CMAKE_PREFIX_PATH} ${directory}/prefix:${prefix})
  endif()
  run(${CMAKE_COMMAND} -S ${consumers}/export/user -B ${directory}
    -DCMAKE_CXX_COMPILER=${compiler})
  run(${CMAKE_COMMAND} --build ${directory})
elseif(IS_ABSOLUTE ${kind})
  run(${CMAKE_COMMAND} -S ${kind} -B ${directory} -DCMAKE_CXX_COMPILER=${compiler}
    -DCMAKE_PREFIX_PATH=${prefix} "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Wshadow -Werror ${flags}")
  run(${CMAKE_COMMAND} --build ${directory})
  run(${CMAKE_CTEST_COMMAND} --test-dir ${directory} --output-on-failure --no-tests=error)
  return()
else()
  run(${CMAKE_COMMAND} -S ${consumers}/${kind} -B ${directory} -DCMAKE_CXX_COMPILER=${compiler}
    -DCMAKE_PREFIX_PATH=${prefix} -DMIRLOW_SOURCE=${source} -DMIRLOW_SOVERSION=${soversion}
    -DFETCHCONTENT_FULLY_DISCONNECTED=ON)
  run(${CMAKE_COMMAND} --build ${directory})
endif()

set(ENV{LD_LIBRARY_PATH} ${prefix}/${libdir})
execute_process(COMMAND ${directory}/consumer OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
if(NOT output STREQUAL "mirlow ${version}\n")
  message(FATAL_ERROR "the consumer printed: ${output}")
endif()
