# What hosts get: the library, whose objects mirlow_objects are, and headers that they find as
# <mirlow/...> and in no other way, so that folders and headers of their own may bear any name.
include(${CMAKE_CURRENT_LIST_DIR}/public_headers.cmake)
file(GLOB host_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/mirlow/*.h)

# A build tree looks to hosts like what is installed.
set(build_include ${PROJECT_BINARY_DIR}/include)
foreach(folder utils interpreter types)
  file(MAKE_DIRECTORY ${build_include}/mirlow/${folder})
endforeach()
foreach(header IN LISTS host_headers)
  configure_file(${header} ${build_include}/mirlow/ COPYONLY)
endforeach()
foreach(header IN LISTS public_headers)
  file(CONFIGURE OUTPUT ${build_include}/mirlow/${header} CONTENT
    "#include \"${PROJECT_SOURCE_DIR}/${header}\"\n")
endforeach()
# The one place of the version number is project().
configure_file(${CMAKE_CURRENT_LIST_DIR}/version.h.in
  ${build_include}/mirlow/interpreter/version.h @ONLY)

# Before 1.0.0 each minor version may break what uses the one before it.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(compatible_version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  set(compatibility SameMinorVersion)
else()
  set(compatible_version ${PROJECT_VERSION_MAJOR})
  set(compatibility SameMajorVersion)
endif()

# Fit for a shared object, whatever the library itself is: hosts make modules and plug-ins of it.
# Only what MIRLOW_API marks can be seen from outside, and none of it is kept unique in a process,
# which would keep a plug-in from being unloaded.
set_target_properties(mirlow_objects PROPERTIES POSITION_INDEPENDENT_CODE ON
  CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
include(CheckCXXCompilerFlag)
foreach(flag -fno-gnu-unique -fno-semantic-interposition)
  string(MAKE_C_IDENTIFIER "MIRLOW_HAS${flag}" has_flag)
  check_cxx_compiler_flag(${flag} ${has_flag})
  if(${has_flag})
    target_compile_options(mirlow_objects PRIVATE ${flag})
  endif()
endforeach()

add_library(mirlow_library $<TARGET_OBJECTS:mirlow_objects>)
add_library(mirlow::mirlow ALIAS mirlow_library)
set_target_properties(mirlow_library PROPERTIES OUTPUT_NAME mirlow EXPORT_NAME mirlow
  LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION} SOVERSION ${compatible_version})
target_compile_features(mirlow_library INTERFACE cxx_std_20)
target_include_directories(mirlow_library INTERFACE "$<BUILD_INTERFACE:${build_include}>")
# The standard library makes its own templates visible, also those that hold nothing of ours.
include(CheckLinkerFlag)
set(exports ${CMAKE_CURRENT_LIST_DIR}/exports.map)
check_linker_flag(CXX "LINKER:--version-script=${exports}" MIRLOW_LINKS_VERSION_SCRIPT)
get_target_property(library_type mirlow_library TYPE)
if(library_type STREQUAL "SHARED_LIBRARY" AND MIRLOW_LINKS_VERSION_SCRIPT)
  target_link_options(mirlow_library PRIVATE "LINKER:--version-script=${exports}")
  set_target_properties(mirlow_library PROPERTIES LINK_DEPENDS ${exports})
endif()

# What this project's own programs and tests link: all of the library, hidden or not.
add_library(mirlow_inside INTERFACE)
target_link_libraries(mirlow_inside INTERFACE mirlow_options)
if(library_type STREQUAL "SHARED_LIBRARY")
  add_library(mirlow_archive STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:mirlow_objects>)
  set_target_properties(mirlow_archive PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(mirlow_inside INTERFACE mirlow_archive)
else()
  target_link_libraries(mirlow_inside INTERFACE mirlow_library)
endif()
