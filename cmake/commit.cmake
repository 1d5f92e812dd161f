# Writes the header that names the commit that a program is built of:
#   cmake -DSOURCES=... -DHEADER=... -P commit.cmake
# Known by git in a checkout (with a "+" where files have changed since) and by commit.txt in an
# archive that git made. The header is written when it changes, and only then.
cmake_minimum_required(VERSION 3.23)
set(commit "")
if(EXISTS "${SOURCES}/.git")
  execute_process(COMMAND git rev-parse HEAD WORKING_DIRECTORY "${SOURCES}"
    OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  execute_process(COMMAND git status --porcelain --untracked-files=no
    WORKING_DIRECTORY "${SOURCES}" OUTPUT_VARIABLE changes ERROR_QUIET)
else()
  file(STRINGS "${SOURCES}/cmake/commit.txt" commit LIMIT_COUNT 1)
  set(changes "")
endif()
if(commit MATCHES "^[0-9a-f]+$")
  string(SUBSTRING "${commit}" 0 12 commit)
else()
  set(commit "desconocido")
endif()
if(changes)
  string(APPEND commit "+")
endif()
file(CONFIGURE OUTPUT "${HEADER}" CONTENT
"#pragma once

inline constexpr const char* kCommit = \"@commit@\";
" @ONLY)
