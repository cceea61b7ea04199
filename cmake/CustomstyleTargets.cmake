# What all our targets share: the language, the warnings, the sanitizers.

function(customstyle_target_settings target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(CUSTOMSTYLE_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(CUSTOMSTYLE_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${CUSTOMSTYLE_SANITIZE} -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=${CUSTOMSTYLE_SANITIZE})
  endif()
endfunction()
