# windows_resources(TARGET DESCRIPTION [RESOURCE ...]): gives a program for Windows its manifest,
# version and icon, and the resources, each a line of a resource script.
function(windows_resources PROGRAM PROGRAM_DESCRIPTION)
  enable_language(RC)
  list(JOIN ARGN "\n" PROGRAM_RESOURCES)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}")
  set(templates "${PROJECT_SOURCE_DIR}/src/app/win32")
  configure_file("${templates}/program.manifest.in" "${folder}/${PROGRAM}.manifest" @ONLY)
  configure_file("${templates}/program.rc.in" "${folder}/${PROGRAM}.rc" @ONLY)
  target_sources(${PROGRAM} PRIVATE "${folder}/${PROGRAM}.rc")
  set_source_files_properties("${folder}/${PROGRAM}.rc" PROPERTIES
    INCLUDE_DIRECTORIES "${PROJECT_SOURCE_DIR}/src;${folder}"
    OBJECT_DEPENDS "${folder}/${PROGRAM}.manifest")
endfunction()
