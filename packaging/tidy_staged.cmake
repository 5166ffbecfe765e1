# Run by cpack on what it is about to pack for Debian: compresses manual pages and changelogs, and
# strips programs and static libraries as Debian does.
if(NOT CPACK_GENERATOR STREQUAL DEB)
  return()
endif()
file(GLOB_RECURSE texts ${CPACK_TEMPORARY_DIRECTORY}/*.1 ${CPACK_TEMPORARY_DIRECTORY}/*/changelog)
foreach(text IN LISTS texts)
  execute_process(COMMAND gzip --best --no-name --force ${text} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(GLOB_RECURSE binaries ${CPACK_TEMPORARY_DIRECTORY}/*)
list(FILTER binaries INCLUDE REGEX "(\\.a|/bin/[^/]*)$")
foreach(binary IN LISTS binaries)
  execute_process(COMMAND strip --strip-debug --remove-section=.comment ${binary}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
