# 32-bit ARM with hardware floating point: 32-bit pointers, unsigned char.
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(machine armhf)
set(compiler arm-linux-gnueabihf)
set(libraries arm-linux-gnueabihf)
set(emulator qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
# The compiler notes at each use that vectors were passed otherwise long ago.
string(APPEND CMAKE_CXX_FLAGS_INIT " -Wno-psabi")
