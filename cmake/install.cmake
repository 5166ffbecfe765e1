# What `cmake --install` puts where, so that others find the library with CMake or pkg-config.
# Headers go below include/mirlow, which is the directory to include from: "interpreter/state.h".
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/mirlow)
set(header_dir ${CMAKE_INSTALL_INCLUDEDIR}/mirlow)

# Before 1.0.0 each minor version may break what uses the one before it.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(compatible_version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  set(compatibility SameMinorVersion)
else()
  set(compatible_version ${PROJECT_VERSION_MAJOR})
  set(compatibility SameMajorVersion)
endif()
set_target_properties(mirlow_library PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${compatible_version})
target_include_directories(mirlow_library INTERFACE $<INSTALL_INTERFACE:${header_dir}>)

install(TARGETS mirlow_library EXPORT mirlowTargets
  RUNTIME COMPONENT development LIBRARY COMPONENT development ARCHIVE COMPONENT development)
# The log is the program's own.
install(DIRECTORY utils interpreter types DESTINATION ${header_dir} COMPONENT development
  FILES_MATCHING PATTERN *.h PATTERN log.h EXCLUDE)
install(FILES ${PROJECT_BINARY_DIR}/generated/interpreter/version.h
  DESTINATION ${header_dir}/interpreter COMPONENT development)

# Programs find a shared library of ours wherever both are moved to.
if(BUILD_SHARED_LIBS)
  file(RELATIVE_PATH from_bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set(run_path $ORIGIN/${from_bin_to_lib})
endif()
if(MIRLOW_PROGRAM)
  set_target_properties(mirlow PROPERTIES INSTALL_RPATH "${run_path}")
  install(TARGETS mirlow COMPONENT program)
  install(FILES docs/man/mirlow.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
endif()
if(MIRLOW_SHELL)
  set_target_properties(mirlow-shell PROPERTIES INSTALL_RPATH "${run_path}")
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
configure_file(${CMAKE_CURRENT_LIST_DIR}/mirlow.pc.in ${PROJECT_BINARY_DIR}/mirlow.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/mirlow.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)
