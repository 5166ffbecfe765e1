# The target "reference": the reference of the API in reference/html of the build directory. It
# fails when a class, or a function outside of one, has no documentation.
find_program(DOXYGEN doxygen)
configure_file(${PROJECT_SOURCE_DIR}/docs/reference/Doxyfile.in
  ${PROJECT_BINARY_DIR}/reference/Doxyfile @ONLY)
if(DOXYGEN)
  add_custom_target(reference ${DOXYGEN} ${PROJECT_BINARY_DIR}/reference/Doxyfile VERBATIM
    COMMENT "Writing the reference to reference/html")
else()
  add_custom_target(reference
    COMMAND ${CMAKE_COMMAND} -E echo "The reference needs doxygen: see scripts/reference"
    COMMAND ${CMAKE_COMMAND} -E false VERBATIM)
endif()
