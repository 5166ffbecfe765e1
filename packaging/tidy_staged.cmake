# Run by cpack on what it is about to pack for Debian: manual pages and changelogs are compressed
# there, and static libraries carry no symbols but those to link with.
if(NOT CPACK_GENERATOR STREQUAL DEB)
  return()
endif()
file(GLOB_RECURSE texts ${CPACK_TEMPORARY_DIRECTORY}/*.1 ${CPACK_TEMPORARY_DIRECTORY}/*/changelog)
foreach(text IN LISTS texts)
  execute_process(COMMAND gzip --best --no-name --force ${text} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(GLOB_RECURSE libraries ${CPACK_TEMPORARY_DIRECTORY}/*.a)
foreach(library IN LISTS libraries)
  execute_process(COMMAND strip --strip-debug --remove-section=.comment ${library}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
