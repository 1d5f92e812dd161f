# One place for what every target is compiled with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# What need not be visible outside may be inlined; the programs export nothing.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
include(CheckPIESupported)
check_pie_supported()

set(SANITIZE "" CACHE STRING "Sanitizers to build with, for instance address,undefined")
option(WARNINGS_ARE_ERRORS "Stop the build at the first warning" OFF)

if(MSVC)
  add_compile_options(/utf-8 /W4 $<$<BOOL:${WARNINGS_ARE_ERRORS}>:/WX>)
else()
  # -ffp-contract=off: windows are sized in 32-bit reals; a fused multiply-add
  # would change their last decimal from one machine to the next.
  add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off
    $<$<BOOL:${WARNINGS_ARE_ERRORS}>:-Werror>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_compile_options(-Wreserved-identifier)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlapping copies in "text" + std::string where there are none (its bug 105651).
    add_compile_options(-Wno-restrict)
    if(WIN32)
      # And, where the library's headers are precompiled, texts longer than memory.
      add_compile_options(-Wno-stringop-overflow)
    endif()
  endif()
  # Hardening: inputs come from anywhere, and the programs run on servers.
  add_compile_options(-fstack-protector-strong $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
  # The same sources give the same bytes, wherever they lie.
  set(here -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
  add_compile_options("$<$<CONFIG:Release>:${here}>")
  if(WIN32)
    # The programs bring all that the system has not.
    add_compile_definitions(_WIN32_WINNT=0x0A00 UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
    add_link_options(-static -s -fstack-protector-strong -Wl,--no-insert-timestamp)
  else()
    add_link_options(-Wl,-z,relro,-z,now)
  endif()
  if(SANITIZE)
    add_compile_options(-fsanitize=${SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      add_compile_options(-Wno-error)  # its warnings go astray in what the sanitizers add
    endif()
    add_link_options(-fsanitize=${SANITIZE})
    # What they do not see: an optional without its value, an index behind a text's end.
    add_compile_options(-D_GLIBCXX_ASSERTIONS)
  endif()
endif()
