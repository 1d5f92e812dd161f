# What runs in the place of tests that could not be built for lack of TOOL: cmake -DTOOL=... -P. They
# count as skipped, or as failed on a build server (the variable CI), which installs all tools.
if(NOT "$ENV{CI}" STREQUAL "")
  message(FATAL_ERROR "${TOOL} is missing on a build server")
endif()
message("skipped: ${TOOL} is missing")
