# Release builds are hardened: this program reads what a stranger's computer sends. An overrun of a buffer or a wrong
# index ends it there, and nothing in memory stands at a known place or can be bent after the start. Found again in the
# built files by ./check PACKAGE.

if(WIN32)
  # The linker's three are its defaults; here they stand against a compiler that has others. What is missing of the list
  # below does not exist for this system: its loader resolves everything at the start.
  add_compile_options("$<$<CONFIG:Release>:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
  add_link_options("$<$<CONFIG:Release>:-fstack-protector-strong;-Wl,--dynamicbase,--high-entropy-va,--nxcompat>")
else()
  # -fPIC is what Qt wants of everything that uses it; with the same for the rest, header sets fit all targets. Some
  # compilers define _FORTIFY_SOURCE themselves, lower; it has to go first, and in the same list to go first.
  add_compile_options("$<$<CONFIG:Release>:-fPIC;-fstack-protector-strong;-fstack-clash-protection>"
                      "$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
  add_link_options("$<$<CONFIG:Release>:-Wl,-z,relro,-z,now>"
                   $<$<AND:$<CONFIG:Release>,$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>>:-pie>)
endif()
add_compile_definitions($<$<CONFIG:Release>:_GLIBCXX_ASSERTIONS>)
