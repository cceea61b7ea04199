# 64-bit ARM: unsigned char.
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(machine arm64)
set(compiler aarch64-linux-gnu)
set(libraries aarch64-linux-gnu)
set(emulator qemu-aarch64)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
