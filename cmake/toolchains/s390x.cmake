# IBM Z: big-endian.
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(machine s390x)
set(compiler s390x-linux-gnu)
set(libraries s390x-linux-gnu)
set(emulator qemu-s390x)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
