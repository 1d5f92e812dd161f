# What is installed, in three components, and the Debian packages that hold them (cpack -G DEB; see
# scripts/package, which makes them the same each time).
include(GNUInstallDirs)
# Both follow SOURCE_DATE_EPOCH.
string(TIMESTAMP RELEASE_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
string(TIMESTAMP RELEASE_DAY "%Y-%m-%d" UTC)

install(TARGETS tip2bdl-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT cli)
set(CPACK_COMPONENTS_ALL cli doc)

# Manual pages and completion.
set(pages "${PROJECT_BINARY_DIR}/pages")
add_custom_command(OUTPUT "${pages}/written"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${pages}"
  COMMAND write_pages "${pages}"
  COMMAND gzip -9nr "${pages}/man1" "${pages}/es"
  COMMAND ${CMAKE_COMMAND} -E touch "${pages}/written"
  DEPENDS write_pages VERBATIM)
if(SANITIZE)
  add_custom_target(pages_of_packages DEPENDS "${pages}/written")
else()
  add_custom_target(pages_of_packages ALL DEPENDS "${pages}/written")
endif()
foreach(folder man1 es/man1)
  install(DIRECTORY "${pages}/${folder}/" DESTINATION "${CMAKE_INSTALL_MANDIR}/${folder}"
    COMPONENT cli FILES_MATCHING PATTERN "tip2bdl-cli*.1.gz")
endforeach()
install(FILES "${pages}/bash-completion/tip2bdl-cli"
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT cli)

if(TARGET tip2bdl)
  list(APPEND CPACK_COMPONENTS_ALL desktop)
  install(TARGETS tip2bdl RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT desktop)
  foreach(folder man1 es/man1)
    install(FILES "${pages}/${folder}/tip2bdl.1.gz"
      DESTINATION "${CMAKE_INSTALL_MANDIR}/${folder}" COMPONENT desktop)
  endforeach()
  install(FILES packaging/linux/tip2bdl.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desktop)
  configure_file(packaging/linux/org.tip2bdl.tip2bdl.metainfo.xml.in
    "${PROJECT_BINARY_DIR}/org.tip2bdl.tip2bdl.metainfo.xml" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/org.tip2bdl.tip2bdl.metainfo.xml"
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT desktop)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  set(pictures src/app/desktop/pictures)
  install(FILES ${pictures}/icon.svg RENAME tip2bdl.svg
    DESTINATION ${icons}/scalable/apps COMPONENT desktop)
  # For panels and menus that read no drawings; the small ones are drawn for their size.
  find_program(RSVG_CONVERT rsvg-convert)
  if(RSVG_CONVERT)
    foreach(size 16 24 32 48 64 128 256)
      set(drawing icon.svg)
      if(size LESS 40)
        set(drawing icon-small.svg)
      endif()
      set(icon "${PROJECT_BINARY_DIR}/icons/${size}.png")
      add_custom_command(OUTPUT "${icon}"
        COMMAND ${CMAKE_COMMAND} -E make_directory "${PROJECT_BINARY_DIR}/icons"
        COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o "${icon}"
          "${PROJECT_SOURCE_DIR}/${pictures}/${drawing}"
        DEPENDS "${PROJECT_SOURCE_DIR}/${pictures}/${drawing}" VERBATIM)
      list(APPEND icon_files "${icon}")
      install(FILES "${icon}" RENAME tip2bdl.png
        DESTINATION ${icons}/${size}x${size}/apps COMPONENT desktop)
    endforeach()
    add_custom_target(icons ALL DEPENDS ${icon_files})
  else()
    message(NOTICE "The icon is installed as a drawing only (Debian: librsvg2-bin)")
  endif()
endif()

# The sample buildings and what hands out a list, and the manual as pages for a browser.
set(doc ${CMAKE_INSTALL_DATADIR}/doc/tip2bdl-doc)
# Permissions of their own, not those of the checkout.
set(example_programs
  parallel/lote.sh slurm/lote.sbatch slurm/unir.sbatch systemd/tip2bdl-carpeta)
install(DIRECTORY samples/ examples/ DESTINATION ${doc}/examples COMPONENT doc
  PATTERN "*.md" EXCLUDE PATTERN "lote.sh" EXCLUDE PATTERN "*.sbatch" EXCLUDE
  PATTERN "tip2bdl-carpeta" EXCLUDE)
foreach(program IN LISTS example_programs)
  get_filename_component(folder ${program} DIRECTORY)
  install(PROGRAMS examples/${program} DESTINATION ${doc}/examples/${folder} COMPONENT doc)
endforeach()
# The system's, which has Debian's modules.
find_program(SYSTEM_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
# python_has(VARIABLE MODULE)
function(python_has variable module)
  set(lacks TRUE)
  if(SYSTEM_PYTHON)
    execute_process(COMMAND ${SYSTEM_PYTHON} -c
      "import sys, importlib.util; sys.exit(importlib.util.find_spec('${module}') is None)"
      RESULT_VARIABLE lacks)
  endif()
  if(lacks)
    set(${variable} FALSE PARENT_SCOPE)
  else()
    set(${variable} TRUE PARENT_SCOPE)
  endif()
endfunction()
python_has(HAS_MARKDOWN markdown)
python_has(HAS_WEASYPRINT weasyprint)
if(NOT HAS_MARKDOWN)
  message(NOTICE "The manual is left out of what is installed (Debian: python3-markdown)")
else()
  file(GLOB manual_sources CONFIGURE_DEPENDS docs/*.md docs/manual/*.md docs/images/*
    examples/*/README.md packaging/manual/*)
  set(manual "${PROJECT_BINARY_DIR}/manual")
  set(make_manual ${SYSTEM_PYTHON} "${PROJECT_SOURCE_DIR}/packaging/manual/make_manual.py"
    "${PROJECT_SOURCE_DIR}")
  add_custom_command(OUTPUT "${manual}/index.html"
    COMMAND ${CMAKE_COMMAND} -E rm -rf "${manual}"
    COMMAND ${make_manual} "${manual}"
    DEPENDS ${manual_sources} VERBATIM)
  add_custom_target(manual ALL DEPENDS "${manual}/index.html")
  install(DIRECTORY "${manual}/" DESTINATION ${doc}/html COMPONENT doc)
  # As one document: takes a while, so only who asks for it (scripts/package) makes it.
  if(HAS_WEASYPRINT)
    set(manual_pdf "${PROJECT_BINARY_DIR}/manual.pdf")
    add_custom_command(OUTPUT "${manual_pdf}"
      COMMAND ${make_manual} "${manual_pdf}" --pdf "${PROJECT_VERSION}"
      DEPENDS ${manual_sources} VERBATIM)
    add_custom_target(manual_pdf DEPENDS "${manual_pdf}")
    install(FILES "${manual_pdf}" DESTINATION ${doc} COMPONENT doc OPTIONAL)
  endif()
endif()

install(FILES packaging/debian/tip2bdl-doc.lintian-overrides RENAME tip2bdl-doc
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT doc)

# The files that every Debian package has.
configure_file(packaging/debian/changelog.in "${PROJECT_BINARY_DIR}/debian/changelog" @ONLY)
execute_process(COMMAND gzip -9nkf "${PROJECT_BINARY_DIR}/debian/changelog"
  COMMAND_ERROR_IS_FATAL ANY)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(REPLACE "tip2bdl-desktop" "tip2bdl" package "tip2bdl-${component}")
  install(FILES "${PROJECT_BINARY_DIR}/debian/changelog.gz" packaging/debian/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tip2bdl)
set(CPACK_PACKAGE_CONTACT "tip2bdl maintainers <maintainers@tip2bdl.invalid>")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_CLI_PACKAGE_NAME tip2bdl-cli)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME tip2bdl)
set(CPACK_DEBIAN_DOC_PACKAGE_NAME tip2bdl-doc)
set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOC_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_CLI_PACKAGE_SUGGESTS tip2bdl-doc)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SUGGESTS "tip2bdl-cli, tip2bdl-doc")
# Each has its own, whose first line is the short one.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_CLI_DESCRIPTION
"thermal model of a dwelling building, for terminals and servers
Generates the thermal model of a dwelling building: rewrites a template in a
building description language for a typology given in a few numbers and names.
Checks typology files, draws plans, reports on buildings and works through
lists of dwellings. Needs neither Qt nor a display.")
set(CPACK_DEBIAN_DESKTOP_DESCRIPTION
"thermal model of a dwelling building, with a form
The stage of an energy-rating chain that generates the thermal model of a
dwelling building. Shows a form while it works and a box for an error.")
set(CPACK_DEBIAN_DOC_DESCRIPTION
"manual and sample buildings of tip2bdl
The manual (in Spanish), every message and finding with its mend, and complete
inputs for all typology numbers.")
include(CPack)
