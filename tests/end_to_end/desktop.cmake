# Whole runs of the desktop program, on X servers of its own (Xvfb) and without any.
if(TARGET tip2bdl)
  find_package(Python3 3.9 REQUIRED COMPONENTS Interpreter)
  add_test(NAME desktop
    COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/desktop_test.py
      $<TARGET_FILE:tip2bdl> $<TARGET_FILE:tip2bdl-cli> ${PROJECT_SOURCE_DIR}/samples
      ${TEST_LOCALES})
  set_tests_properties(desktop PROPERTIES
    SKIP_RETURN_CODE 77 TIMEOUT 180 ENVIRONMENT PYTHONDONTWRITEBYTECODE=1)
endif()
