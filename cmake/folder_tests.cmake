# folder_tests(NAME source...): the tests of the folder src/NAME. Builds NAME_test on the library of
# the same name and registers every test that CMake finds in it.
# discover_tests(TARGET): the same for a test program that stands on its own.
# skip_for_lack_of(NAME TOOL): tests called NAME that cannot be built without TOOL.

# Three quarters of a compiler's time went into what all tests include: it is read once. (Not where
# compiled files are kept in a cache, which such a header would put out of use.) Where the program is
# optimised its tests need not be.
if(WIN32 OR SANITIZE OR CMAKE_BUILD_TYPE STREQUAL "Release")
  set(quick_to_build -O0 -U_FORTIFY_SOURCE)
endif()

function(build_quickly target)
  target_compile_options(${target} PRIVATE ${quick_to_build})
  if(CMAKE_CXX_COMPILER_LAUNCHER)
    return()
  endif()
  if(target STREQUAL "test_support")
    target_precompile_headers(${target} PRIVATE
      <gtest/gtest.h> <gmock/gmock.h> <filesystem> <functional> <map> <optional> <string> <vector>)
  else()
    if(NOT WIN32)
      # As the header's own target is, and the framework's users must be.
      target_compile_options(${target} PRIVATE -fPIC)
    endif()
    target_precompile_headers(${target} REUSE_FROM test_support)
  endif()
endfunction()

if(WIN32)
  # Debian has it for other systems as sources (libgtest-dev, libgmock-dev).
  set(googletest /usr/src/googletest)
  add_library(googletest STATIC
    ${googletest}/googletest/src/gtest-all.cc ${googletest}/googlemock/src/gmock-all.cc)
  target_include_directories(googletest
    SYSTEM PUBLIC ${googletest}/googletest/include ${googletest}/googlemock/include
    PRIVATE ${googletest}/googletest ${googletest}/googlemock)
  target_compile_options(googletest PRIVATE -w ${quick_to_build})
  add_library(GTest::gtest ALIAS googletest)
  add_library(GTest::gmock ALIAS googletest)
else()
  find_package(GTest REQUIRED)
endif()
include(GoogleTest)

# Spanish locales of our own, so that the tests need none of the machine's.
set(TEST_LOCALES "${PROJECT_BINARY_DIR}/locales")
find_program(LOCALEDEF localedef)
add_custom_target(test_locales ALL)
if(LOCALEDEF)
  foreach(charset UTF-8 ISO-8859-1)
    set(locale "${TEST_LOCALES}/es_ES.${charset}")
    add_custom_command(OUTPUT "${locale}/LC_NUMERIC"
      COMMAND ${CMAKE_COMMAND} -E make_directory "${TEST_LOCALES}"
      COMMAND ${LOCALEDEF} --no-warnings=ascii -i es_ES -f ${charset} "${locale}"
      COMMENT "Compiling the locale es_ES.${charset}")
    string(MAKE_C_IDENTIFIER "test_locale_${charset}" target)
    add_custom_target(${target} DEPENDS "${locale}/LC_NUMERIC")
    add_dependencies(test_locales ${target})
  endforeach()
endif()

# What the tests of the libraries ask of the system, and Windows has not: a child that is forked and
# so sees the folder of its test; a folder that can be opened; a text mode that leaves all bytes
# alone, line ends of two kinds too; links; devices that are always full or never end; the C library
# of Linux, whose sscanf is compared.
set(NOT_UNDER_WINDOWS
  ErrorLogOnDisk.*
  FicheroEndOfProcess.*
  Bytes.OfMixedLineEndsAreTold
  OutputLines.AFileThatDoesNotTakeThemIsSaid
  FicheroErrors.AnEndlessDeviceIsNotReadForEver
  RunFaults.AnOutputThatCannotBeWrittenEndsTheRun
  RunFaults.AFaultThatIsOnItsWayIsNotHiddenByTheOutputs
  RunGenerationTest.AFaultyTypologyLeavesAnEmptyOutputAndNoMarker
  FicheroErrors.AFolderIsNoFile
  ListReader.AFolderEndsTheRun
  FicheroReading.GivesTheBytesOfTheFileAndItsName
  FileExists.FollowsALinkToItsFile
  Numbers.AreReadAsSscanf*)

function(discover_tests target)
  add_dependencies(${target} test_locales)
  build_quickly(${target})
  if(WIN32)
    # One process: one for each test would take minutes under wine.
    list(JOIN NOT_UNDER_WINDOWS ":" left_out)
    add_test(NAME ${target} COMMAND ${target} --gtest_filter=-${left_out})
    # A fraction of the random cases: files are slow under wine, and the other presets try them all.
    set_tests_properties(${target} PROPERTIES
      TIMEOUT 600 FIXTURES_REQUIRED windows ENVIRONMENT TIP2BDL_CHECKS=10)
    return()
  endif()
  gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60)
endfunction()

function(folder_tests name)
  add_executable(${name}_test ${ARGN})
  target_link_libraries(${name}_test PRIVATE ${name} test_support)
  discover_tests(${name}_test)
endfunction()

function(skip_for_lack_of name tool)
  add_test(NAME ${name}
    COMMAND ${CMAKE_COMMAND} -DTOOL=${tool} -P ${PROJECT_SOURCE_DIR}/cmake/lacking_test.cmake)
  set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION "^skipped: ")
endfunction()
