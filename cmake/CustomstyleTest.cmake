# customstyle_test_environment(<test>): tells the sanitizers of the leaks that are meant.
function(customstyle_test_environment test)
  set_tests_properties(${test} PROPERTIES ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/leaks.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()

# customstyle_add_test(<name> <source>...): a GoogleTest program over the component, run by ctest under its name.
function(customstyle_add_test name)
  add_executable(${name} ${ARGN})
  customstyle_target_settings(${name})
  target_precompile_headers(${name} REUSE_FROM customstyle_test_support)
  target_link_libraries(${name} PRIVATE customstyle_test_support GTest::gmock GTest::gtest_main)
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  customstyle_test_environment(${name})
endfunction()

# customstyle_run_once(<test>...): tests that run programs of others, or thousands of styles. script/test runs them on the
# release, and leaves them out under the sanitizers.
function(customstyle_run_once)
  set_tests_properties(${ARGN} PROPERTIES LABELS once)
endfunction()
