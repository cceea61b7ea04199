# What all our targets share: the language, the warnings, the sanitizers, the hardening.
include(CheckCXXCompilerFlag)

option(CUSTOMSTYLE_HARDENED "Let the compiler build in its checks against memory faults" ${PROJECT_IS_TOP_LEVEL})

# An optimising g++ warns of the code of others that comes from precompiled headers.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# Where there is memory for it, g++ does not collect garbage, which takes a tenth of its time: up to 1.5 GB for a file.
cmake_host_system_information(RESULT memory QUERY TOTAL_PHYSICAL_MEMORY)
if(PROJECT_IS_TOP_LEVEL AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND memory GREATER 12000)
  add_compile_options("$<$<CONFIG:Release>:SHELL:--param ggc-min-heapsize=1048576>")
endif()

# For programs and libraries alike. CUSTOMSTYLE_UNCHECKED are sanitizers that a folder does without.
function(customstyle_target_settings target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  # GCC 12 at -O3 warns of overlaps inside std::string's own operator+ (GCC bug 105651).
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
  if(CUSTOMSTYLE_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(CUSTOMSTYLE_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${CUSTOMSTYLE_SANITIZE} -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer ${CUSTOMSTYLE_UNCHECKED})
    # GCC takes members of the standard library for uninitialised when its own checks stand in between.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(${target} PUBLIC -fsanitize=${CUSTOMSTYLE_SANITIZE})
    if(CUSTOMSTYLE_FUZZ)
      # All our code counts its branches; only the fuzzers get the engine. Operands of comparisons are not noted: words
      # come from dictionaries and grammars, and the notes take a seventh of the time.
      target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
    endif()
  elseif(CUSTOMSTYLE_HARDENED)
    customstyle_harden(${target})
  endif()
  if(CUSTOMSTYLE_COVERAGE)
    customstyle_count(${target})
  endif()
endfunction()

# Counts what runs, into profiles/ of the build tree. Headers count wherever they are included.
function(customstyle_count target)
  set(counted -fprofile-instr-generate=${PROJECT_BINARY_DIR}/profiles/%m.profraw)
  target_compile_options(${target} PRIVATE ${counted} -fcoverage-mapping
                                           -fprofile-list=${PROJECT_SOURCE_DIR}/cmake/counted-sources.txt)
  target_link_options(${target} PUBLIC ${counted})
  get_target_property(type ${target} TYPE)
  if(type STREQUAL EXECUTABLE)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/OneProcessor.cpp)
  endif()
endfunction()

# Guards the stack and the buffers of the C library; programs stand at a random address, with all tables of the linker
# read-only. The checks of the C library need an optimising build.
check_cxx_compiler_flag("-Werror -fstack-clash-protection" CUSTOMSTYLE_HAS_STACK_CLASH_PROTECTION)
# CUSTOMSTYLE_LIGHT is set where nothing is optimised.
function(customstyle_harden target)
  target_compile_options(${target} PRIVATE -fstack-protector-strong
    $<$<BOOL:${CUSTOMSTYLE_HAS_STACK_CLASH_PROTECTION}>:-fstack-clash-protection>
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE>)
  if(NOT CUSTOMSTYLE_LIGHT)
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=3>)
  endif()
  target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now,-z,noexecstack)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL EXECUTABLE)
    target_link_options(${target} PRIVATE -pie)
  endif()
  if(NOT type STREQUAL SHARED_LIBRARY)
    # Enough for such programs; for a shared library around us, CMAKE_POSITION_INDEPENDENT_CODE asks for more.
    target_compile_options(${target} PRIVATE $<$<NOT:$<BOOL:$<TARGET_PROPERTY:POSITION_INDEPENDENT_CODE>>>:-fPIE>)
  endif()
endfunction()

# For the libraries that we ship, static or shared as BUILD_SHARED_LIBS says: they show what their installed headers
# declare, and nothing else.
function(customstyle_library_settings target)
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  if(NOT CUSTOMSTYLE_EXCEPTIONS)
    target_compile_options(${target} PRIVATE -fno-exceptions -fno-rtti)
  endif()
endfunction()

# For what users do not see: the libraries themselves, tests and benchmarks.
function(customstyle_private_headers target)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/sdkengine/src/app/map)
endfunction()

# Headers for users stand in include/customstyle/ beside the sources; the others are seen by the library alone.
function(customstyle_library_headers target)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  customstyle_private_headers(${target})
endfunction()
