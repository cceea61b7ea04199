# 32-bit x86: 32-bit pointers, and 64-bit integers in a record stand at multiples of 4.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(machine i386)
set(compiler i686-linux-gnu)
set(libraries i386-linux-gnu)
set(emulator qemu-i386)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
