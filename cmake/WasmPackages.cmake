# What we compile for WebAssembly of other packages, as script/wasm-packages lays it out. Headers of the host serve here,
# too; cJSON is compiled from its source.
set(packages ${CMAKE_CURRENT_LIST_DIR}/../build/wasm/packages)

foreach(package fmt nlohmann_json utf8cpp cjson)
  file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${package}-config.cmake "")
endforeach()
foreach(target fmt::fmt nlohmann_json::nlohmann_json utf8cpp)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} INTERFACE ${packages}/include)
endforeach()
target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY FMT_EXCEPTIONS=0)
target_compile_definitions(nlohmann_json::nlohmann_json INTERFACE JSON_NOEXCEPTION)

enable_language(C)
add_library(cjson STATIC ${packages}/cjson/cJSON.c)
target_include_directories(cjson PUBLIC ${packages}/include)
