include(CMakeFindDependencyMacro)
find_dependency(mirlow)
include("${CMAKE_CURRENT_LIST_DIR}/outerTargets.cmake")
