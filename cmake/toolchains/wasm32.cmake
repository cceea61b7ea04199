# WebAssembly with 32-bit pointers, by Debian's clang-19 with its libraries for WASI: neither threads nor files.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
foreach(language C CXX)
  set(CMAKE_${language}_COMPILER_TARGET wasm32-wasi)
endforeach()
set(CMAKE_C_COMPILER clang-19)
set(CMAKE_CXX_COMPILER clang++-19)
set(CMAKE_AR llvm-ar-19 CACHE FILEPATH "")
set(CMAKE_RANLIB llvm-ranlib-19 CACHE FILEPATH "")
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
# Node 20 crashes when optimised code makes fast calls of its interface to the system.
set(CMAKE_CROSSCOMPILING_EMULATOR node --no-warnings --no-turbo-fast-api-calls ${CMAKE_CURRENT_LIST_DIR}/run-wasm.mjs)
