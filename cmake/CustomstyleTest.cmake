# customstyle_test_environment(<test>): tells the sanitizers of the leaks that are meant.
function(customstyle_test_environment test)
  set_tests_properties(${test} PROPERTIES ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/leaks.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()

# customstyle_part_of(<group> <test> <program>): the test has its group as a label, and the target <group>_tests builds
# the program. script/test runs "core", which is what runs within the renderer, and the JSON reader, under the
# sanitizers, and "tools" on the release. "rest" is for script/campaigns.
function(customstyle_part_of group test program)
  set_property(TEST ${test} APPEND PROPERTY LABELS ${group})
  add_dependencies(${group}_tests ${program})
endfunction()

# customstyle_add_test(<name> <source>...): a GoogleTest program over the component, run by ctest under its name; a part
# of CUSTOMSTYLE_TEST_GROUP.
function(customstyle_add_test name)
  add_executable(${name} ${ARGN})
  customstyle_target_settings(${name})
  target_precompile_headers(${name} REUSE_FROM customstyle_test_support)
  target_link_libraries(${name} PRIVATE customstyle_test_support GTest::gmock GTest::gtest_main)
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  customstyle_test_environment(${name})
  customstyle_part_of(${CUSTOMSTYLE_TEST_GROUP} ${name} ${name})
endfunction()

# customstyle_run_once(<test>...): tests that run programs of others, or thousands of styles. They run on the release,
# and not under the sanitizers.
function(customstyle_run_once)
  set_property(TEST ${ARGN} APPEND PROPERTY LABELS once)
endfunction()

# customstyle_run_early(<seconds> <test>...): tests that take long begin first, so that nobody waits for them at the end.
function(customstyle_run_early seconds)
  set_tests_properties(${ARGN} PROPERTIES COST ${seconds})
endfunction()
