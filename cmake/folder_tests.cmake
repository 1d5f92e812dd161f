# folder_tests(NAME source...): the tests of the folder src/NAME. Builds NAME_test on the library of
# the same name and registers every test that CMake finds in it.
find_package(GTest REQUIRED)
include(GoogleTest)

function(folder_tests name)
  add_executable(${name}_test ${ARGN})
  target_link_libraries(${name}_test PRIVATE ${name} test_support)
  gtest_discover_tests(${name}_test DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60)
endfunction()
