# Libraries of headers alone, nlohmann_json::nlohmann_json and xxhash. For Windows they are those of
# the building system: links lead to them, since its other headers are not for that compiler.
add_library(xxhash INTERFACE)
if(CMAKE_CROSSCOMPILING)
  set(linked "${PROJECT_BINARY_DIR}/headers")
  file(MAKE_DIRECTORY "${linked}")
  foreach(header nlohmann xxhash.h)
    find_path(HEADERS_WITH_${header} ${header} PATHS /usr/include NO_DEFAULT_PATH
      NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    file(CREATE_LINK "${HEADERS_WITH_${header}}/${header}" "${linked}/${header}" SYMBOLIC)
  endforeach()
  add_library(nlohmann_json INTERFACE)
  add_library(nlohmann_json::nlohmann_json ALIAS nlohmann_json)
  target_include_directories(xxhash SYSTEM INTERFACE "${linked}")
  target_include_directories(nlohmann_json SYSTEM INTERFACE "${linked}")
else()
  find_package(nlohmann_json REQUIRED)
endif()
