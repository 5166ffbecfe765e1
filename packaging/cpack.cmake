# Packages: `cpack` makes mirlow and libmirlow-dev for Debian, and one archive with everything. See
# packaging/README.md. To be included once all install rules are known.
include(GNUInstallDirs)

# What belongs to no program: pages, scripts, editors' files.
set(doc_dir ${CMAKE_INSTALL_DATAROOTDIR}/doc)
# As they lie in this tree, so that their links to each other hold.
file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
install(FILES ${pages} DESTINATION ${doc_dir}/mirlow/docs COMPONENT documentation)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/notes DESTINATION ${doc_dir}/mirlow/docs
  COMPONENT documentation)
install(FILES docs/pictures/performance.svg DESTINATION ${doc_dir}/mirlow/docs/pictures
  COMPONENT documentation)
install(FILES CHANGELOG.md CONTRIBUTING.md SECURITY.md
  DESTINATION ${doc_dir}/mirlow COMPONENT documentation)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${doc_dir}/mirlow
  COMPONENT documentation PATTERN __pycache__ EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/editors DESTINATION ${doc_dir}/mirlow
  COMPONENT documentation)

# What Debian asks of every package.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
# Who makes packages for others says so in the usual variables.
set(contact "the mirlow authors <mirlow@packages.debian.org>")
if(DEFINED ENV{DEBFULLNAME} AND DEFINED ENV{DEBEMAIL})
  set(contact "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
endif()
foreach(package mirlow libmirlow-dev)
  set(component program)
  if(package STREQUAL libmirlow-dev)
    set(component development)
  endif()
  set(changelog ${PROJECT_BINARY_DIR}/packaging/${package}/changelog)
  file(CONFIGURE OUTPUT ${changelog} CONTENT [[
mirlow (@PROJECT_VERSION@) unstable; urgency=medium

  * See CHANGELOG.md of the sources.

 -- @contact@  @date@
]])
  install(FILES ${changelog} ${PROJECT_SOURCE_DIR}/packaging/copyright
    DESTINATION ${doc_dir}/${package} COMPONENT ${component})
endforeach()
install(FILES packaging/mirlow.lintian-overrides RENAME mirlow
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides COMPONENT program EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME mirlow)
set(CPACK_PACKAGE_VENDOR "the mirlow authors")
set(CPACK_PACKAGE_CONTACT ${contact})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "typed calculator for the terminal")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/tidy_staged.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL program shell documentation development)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${contact})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_CALCULATOR_PACKAGE_NAME mirlow)
set(CPACK_DEBIAN_CALCULATOR_PACKAGE_SECTION math)
set(CPACK_DEBIAN_CALCULATOR_DESCRIPTION
"Calculates with numbers, vectors and references: expressions that are kept
and evaluated anew each time they are used. Comes with mirlow-shell, which
adds line editing, history and completion at a terminal, and an exit status
in a pipe.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libmirlow-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
"The C++20 library of the calculator mirlow, for programs that evaluate
expressions or add types, operators and functions of their own. It is found
with CMake and with pkg-config.")

include(CPack)
cpack_add_component_group(calculator)
cpack_add_component_group(development)
cpack_add_component(program GROUP calculator)
cpack_add_component(shell GROUP calculator)
cpack_add_component(documentation GROUP calculator)
cpack_add_component(development GROUP development)
