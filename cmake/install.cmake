# What `cmake --install` puts where, so that others find the library with CMake or pkg-config.
# Headers go below include/mirlow, to be included as <mirlow/state.h>.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/mirlow)
set(header_dir ${CMAKE_INSTALL_INCLUDEDIR}/mirlow)

target_include_directories(mirlow_library INTERFACE
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

install(TARGETS mirlow_library EXPORT mirlowTargets
  RUNTIME COMPONENT development LIBRARY COMPONENT development ARCHIVE COMPONENT development)
install(FILES ${host_headers} DESTINATION ${header_dir} COMPONENT development)
foreach(header IN LISTS public_headers)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${header_dir}/${folder}
    COMPONENT development)
endforeach()
install(FILES ${build_include}/mirlow/interpreter/version.h
  DESTINATION ${header_dir}/interpreter COMPONENT development)

if(MIRLOW_PROGRAM)
  install(TARGETS mirlow COMPONENT program)
  install(FILES docs/man/mirlow.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
endif()
if(MIRLOW_SHELL)
  install(TARGETS mirlow-shell COMPONENT shell)
  install(FILES docs/man/mirlow-shell.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT shell)
  # Debian has a directory of its own for what its packages bring.
  set(MIRLOW_ZSH_DIR ${CMAKE_INSTALL_DATAROOTDIR}/zsh/site-functions CACHE STRING
    "Where zsh finds completions")
  install(FILES tools/completions/mirlow-shell.bash RENAME mirlow-shell
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/bash-completion/completions COMPONENT shell)
  install(FILES tools/completions/_mirlow-shell DESTINATION ${MIRLOW_ZSH_DIR} COMPONENT shell)
  install(FILES tools/completions/mirlow-shell.fish
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/fish/vendor_completions.d COMPONENT shell)
endif()

install(EXPORT mirlowTargets NAMESPACE mirlow:: DESTINATION ${package_dir} COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/mirlowConfig.cmake.in
  ${PROJECT_BINARY_DIR}/mirlowConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/mirlowConfigVersion.cmake
  COMPATIBILITY ${compatibility})
install(FILES ${PROJECT_BINARY_DIR}/mirlowConfig.cmake
  ${PROJECT_BINARY_DIR}/mirlowConfigVersion.cmake DESTINATION ${package_dir} COMPONENT development)

file(RELATIVE_PATH pc_prefix
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" pc_prefix ${pc_prefix})
set(private_libraries ${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES})
list(FILTER private_libraries INCLUDE REGEX "^(stdc\\+\\+|c\\+\\+|m)$")
list(TRANSFORM private_libraries PREPEND -l)
list(JOIN private_libraries " " private_libraries)
configure_file(${CMAKE_CURRENT_LIST_DIR}/mirlow.pc.in ${PROJECT_BINARY_DIR}/mirlow.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/mirlow.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)
