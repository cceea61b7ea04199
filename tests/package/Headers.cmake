# What a user of the package can include and what not, checked by the compiler in the user's own project.

set(map ${CUSTOMSTYLE_SOURCE}/sdkengine/src/app/map)

# expect_no_private_headers(<target>): none of the component's private headers is on the target's include path.
function(expect_no_private_headers target)
  file(GLOB_RECURSE headers RELATIVE ${map} ${map}/*.h)
  list(FILTER headers EXCLUDE REGEX "/include/")
  if(NOT headers)
    message(FATAL_ERROR "${map} has no private headers")
  endif()
  set(text)
  foreach(header IN LISTS headers)
    string(APPEND text "#if __has_include(\"${header}\")\n#error \"${header} is private\"\n#endif\n")
  endforeach()
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/private_headers.cpp CONTENT "${text}" @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/private_headers.cpp)
endfunction()

# expect_public_headers(<target>): all headers of the component and of the base library that are for users are on it.
function(expect_public_headers target)
  set(text)
  foreach(root ${map}/customstyle/include ${map}/stylesnapshot/include ${CUSTOMSTYLE_SOURCE}/engine/dev/inc)
    file(GLOB_RECURSE headers RELATIVE ${root} ${root}/*.h)
    if(NOT headers)
      message(FATAL_ERROR "${root} has no headers")
    endif()
    foreach(header IN LISTS headers)
      string(APPEND text "#include \"${header}\"\n")
    endforeach()
  endforeach()
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/public_headers.cpp CONTENT "${text}" @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/public_headers.cpp)
endfunction()
