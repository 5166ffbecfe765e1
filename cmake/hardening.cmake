# Flags that make a mistake in the code end the program instead of harming its user. To be included
# where mirlow_options is known; what a compiler lacks is left out.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)

foreach(flag -fstack-protector-strong -fstack-clash-protection -fPIE)
  string(MAKE_C_IDENTIFIER "MIRLOW_HAS${flag}" has_flag)
  check_cxx_compiler_flag(${flag} ${has_flag})
  if(${has_flag} AND flag STREQUAL -fPIE)
    # The objects of the library fit everywhere already.
    target_compile_options(mirlow_options INTERFACE
      $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${flag}>)
  elseif(${has_flag})
    target_compile_options(mirlow_options INTERFACE ${flag})
  endif()
endforeach()

# Checked accesses of the C library and of the containers.
target_compile_options(mirlow_options INTERFACE
  -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -D_GLIBCXX_ASSERTIONS)

# Programs at random addresses, whose tables of functions are read-only once they run. One that is
# linked with all that it needs says -static-pie itself, which -pie would take back.
set(is_program $<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>)
set(is_static $<BOOL:$<TARGET_PROPERTY:MIRLOW_STATIC>>)
foreach(flag -pie LINKER:-z,relro LINKER:-z,now)
  string(MAKE_C_IDENTIFIER "MIRLOW_LINKS${flag}" links_flag)
  check_linker_flag(CXX ${flag} ${links_flag})
  if(NOT ${links_flag})
    continue()
  endif()
  set(takes_flag ${is_program})
  if(flag STREQUAL -pie)
    set(takes_flag $<AND:${is_program},$<NOT:${is_static}>>)
  endif()
  target_link_options(mirlow_options INTERFACE $<${takes_flag}:${flag}>)
endforeach()
