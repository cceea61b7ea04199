# Cross-building on Debian: included by the file of each machine, which sets
#   machine    Debian's name of the architecture
#   compiler   prefix of the compilers, and the folder with the C library under /usr
#   libraries  folder of the libraries within a package
#   emulator   program that runs the machine's programs
# script/test-abi unpacks the packages that we link to.
get_filename_component(packages ${CMAKE_CURRENT_LIST_DIR}/../../build/abi/packages/${machine} ABSOLUTE)

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${compiler}-gcc)
set(CMAKE_CXX_COMPILER ${compiler}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${libraries})

set(CMAKE_FIND_ROOT_PATH ${packages})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR
    ${emulator};-L;/usr/${compiler};-E;LD_LIBRARY_PATH=${packages}/usr/lib/${libraries})
