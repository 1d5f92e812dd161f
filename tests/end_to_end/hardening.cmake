# The hardening of the release programs. Without sanitizers only: they bring their own.
find_program(READELF readelf)
if(NOT READELF OR NOT CMAKE_BUILD_TYPE STREQUAL "Release" OR SANITIZE)
  return()
endif()
find_package(Python3 3.9 REQUIRED COMPONENTS Interpreter)

function(check_hardening target)
  add_test(NAME Hardening.${target}
    COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/hardening_test.py
      ${READELF} $<TARGET_FILE:${target}> __stack_chk_fail ${ARGN})
endfunction()

check_hardening(tip2bdl-cli)
if(TARGET tip2bdl)
  # Of the calls that _FORTIFY_SOURCE checks, GCC proves all but this one harmless; Clang all.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set(fortified __fprintf_chk)
  endif()
  check_hardening(tip2bdl ${fortified})
endif()
