# The target "reference": the reference of the API in reference/html of the build directory. It
# fails when a class, or a function outside of one, has no documentation.
find_program(DOXYGEN doxygen)
set(reference_headers ${build_include}/mirlow/interpreter/version.h)
# What headers need and hosts do not stays out.
set(told_headers ${public_headers})
list(FILTER told_headers EXCLUDE REGEX "(pool|fwd|api)\\.h$")
foreach(header IN LISTS told_headers)
  string(APPEND reference_headers " ${PROJECT_SOURCE_DIR}/${header}")
endforeach()
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
