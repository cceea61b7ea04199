# 32-bit x86: 32-bit pointers, and 64-bit integers in a record stand at multiples of 4.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(machine i386)
set(compiler i686-linux-gnu)
set(libraries i386-linux-gnu)
set(emulator qemu-i386)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
# A 64-bit x86 processor runs these programs itself, if the kernel lets it. Emulated threads may wait for ever.
set(loader /usr/${compiler}/lib/ld-linux.so.2)
execute_process(COMMAND ${loader} --version RESULT_VARIABLE refused OUTPUT_QUIET ERROR_QUIET)
if(refused EQUAL 0)
  set(CMAKE_CROSSCOMPILING_EMULATOR
      ${loader};--library-path;${packages}/usr/lib/${libraries}:/usr/${compiler}/lib)
endif()
