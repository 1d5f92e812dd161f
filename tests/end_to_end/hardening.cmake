# The hardening of the release programs. Without sanitizers only: they bring their own.
if(NOT CMAKE_BUILD_TYPE STREQUAL "Release" OR SANITIZE)
  return()
endif()
find_program(READELF readelf)
if(NOT READELF)
  skip_for_lack_of(Hardening readelf)
  return()
endif()
find_package(Python3 3.9 REQUIRED COMPONENTS Interpreter)

function(check_hardening target)
  add_test(NAME Hardening.${target}
    COMMAND Python3::Interpreter ${CMAKE_CURRENT_LIST_DIR}/hardening_test.py
      ${READELF} $<TARGET_FILE:${target}> __stack_chk_fail)
endfunction()

check_hardening(tip2bdl-cli)
if(TARGET tip2bdl)
  check_hardening(tip2bdl)
endif()
