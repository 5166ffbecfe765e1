# Links the program with all that it needs, where the C library can be had so: at a random address as
# ever, if all objects are made for that, as hardening makes them. Otherwise with the C++ library.
include(CheckCXXSourceCompiles)

set(CMAKE_REQUIRED_FLAGS -fPIE)
set(CMAKE_REQUIRED_LINK_OPTIONS -static-pie)
check_cxx_source_compiles("#include <iostream>\nint main() { std::cout << 1; }"
  MIRLOW_LINKS_STATIC_PIE)
unset(CMAKE_REQUIRED_FLAGS)
unset(CMAKE_REQUIRED_LINK_OPTIONS)

if(MIRLOW_HARDENING AND MIRLOW_LINKS_STATIC_PIE)
  set_target_properties(mirlow PROPERTIES MIRLOW_STATIC ON)
  target_link_options(mirlow PRIVATE -static-pie)
else()
  target_link_options(mirlow PRIVATE -static-libstdc++ -static-libgcc)
endif()
