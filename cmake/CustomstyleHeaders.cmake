# customstyle_check_headers(<target> <header>...): compiles each header on its own, as the first thing in its file, and
# once more behind itself.
function(customstyle_check_headers target)
  set(sources)
  foreach(header IN LISTS ARGN)
    string(MAKE_C_IDENTIFIER ${header} name)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n#include \"${header}\"\n" @ONLY)
    list(APPEND sources ${source})
  endforeach()
  add_library(${target} OBJECT ${sources})
  customstyle_target_settings(${target})
  target_link_libraries(${target} PRIVATE customstyle::customstyle)
endfunction()
