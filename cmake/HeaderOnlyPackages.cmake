# For a build with another standard library than the packages were compiled with: takes of each the headers alone.
# Given as CMAKE_PROJECT_INCLUDE.
foreach(package fmt tomlplusplus)
  file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${package}-config.cmake "")
endforeach()
add_library(fmt::fmt INTERFACE IMPORTED)
target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)
add_library(tomlplusplus::tomlplusplus INTERFACE IMPORTED)
target_compile_definitions(tomlplusplus::tomlplusplus INTERFACE TOML_HEADER_ONLY=1)
