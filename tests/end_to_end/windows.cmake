# Whole runs of the programs for Windows, under wine.
# By its path, not as a target: CMake would start a target under wine.
find_package(Python3 3.9 REQUIRED COMPONENTS Interpreter)
set(here "${PROJECT_SOURCE_DIR}/tests/end_to_end")

# The Windows of the libraries' tests and of the console program's. It stays until it is told to
# go: a test that had to start it would be over only when it is, since it keeps that test's streams
# open.
add_test(NAME windows_begins COMMAND ${here}/windows_for_tests begin ${PROJECT_BINARY_DIR}/wine)
add_test(NAME windows_ends COMMAND ${here}/windows_for_tests end ${PROJECT_BINARY_DIR}/wine)
set_tests_properties(windows_begins PROPERTIES FIXTURES_SETUP windows TIMEOUT 120)
set_tests_properties(windows_ends PROPERTIES FIXTURES_CLEANUP windows TIMEOUT 60)

add_test(NAME windows_samples
  COMMAND ${Python3_EXECUTABLE} ${here}/windows_samples_test.py
    $<TARGET_FILE:tip2bdl-cli> ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/wine)
# Against the program of this machine, which another preset builds.
add_test(NAME windows_random
  COMMAND ${Python3_EXECUTABLE} ${here}/windows_random_test.py
    $<TARGET_FILE:tip2bdl-cli> ${PROJECT_SOURCE_DIR}/build/release/tip2bdl-cli
    ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/wine)
add_test(NAME windows_works
  COMMAND ${Python3_EXECUTABLE} ${here}/windows_works_test.py
    $<TARGET_FILE:tip2bdl-cli> ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/wine)
add_test(NAME windows_desktop
  COMMAND ${Python3_EXECUTABLE} ${here}/windows_desktop_test.py
    $<TARGET_FILE:tip2bdl> ${PROJECT_SOURCE_DIR})
add_test(NAME windows_programs
  COMMAND ${Python3_EXECUTABLE} ${here}/windows_programs_test.py
    ${CMAKE_OBJDUMP} ${PROJECT_VERSION} ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}
    $<TARGET_FILE:tip2bdl> $<TARGET_FILE:tip2bdl-cli>)
add_test(NAME windows_same_bytes
  COMMAND ${here}/windows_same_bytes ${PROJECT_SOURCE_DIR}
    $<TARGET_FILE:tip2bdl> $<TARGET_FILE:tip2bdl-cli>)
add_test(NAME windows_package
  COMMAND ${Python3_EXECUTABLE} ${here}/windows_package_test.py
    ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${PROJECT_VERSION})
set_tests_properties(windows_samples windows_random windows_works windows_desktop
  windows_programs windows_package
  PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 300 ENVIRONMENT PYTHONDONTWRITEBYTECODE=1)
set_tests_properties(windows_samples windows_random windows_works PROPERTIES FIXTURES_REQUIRED windows)
set_tests_properties(windows_same_bytes PROPERTIES TIMEOUT 1200 COST 1000)  # begins first
