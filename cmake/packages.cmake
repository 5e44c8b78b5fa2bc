# Debian packages from the install rules: ./package, or cpack in a build folder configured with prefix /usr.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME avcontrol)
set(CPACK_PACKAGE_CONTACT "The A/V Control developers <avcontrol@packages.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(this_version "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")

# debian_package(COMPONENT NAME SECTION DEPENDS SUMMARY TEXT)
macro(debian_package component name section depends summary text)
  string(TOUPPER ${component} upper)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${depends}")
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n${text}")
  # What Debian's policy wants in each package.
  install(FILES packaging/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
  install(FILES ${CMAKE_BINARY_DIR}/changelog.gz ${CMAKE_BINARY_DIR}/changelog.Debian.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
    COMPONENT ${component} OPTIONAL)
endmacro()

set(CPACK_COMPONENTS_ALL "")
debian_package(plugin avcontrol-plugin libs "" "A/V Control plug-in for HbbTV and CE-HTML browsers"
  "The plug-in library avcontrol-plugin.so, its framework, and the\nNPAPI module that a browser engine loads.")
debian_package(dev avcontrol-plugin-dev libdevel "avcontrol-plugin (= ${this_version})"
  "A/V Control plug-in: headers for television integrators"
  "Headers, CMake package, pkg-config file, porting guide and examples.")
if(AVCONTROL_DESKTOP)
  string(JOIN ", " television_depends "avcontrol-plugin (= ${this_version})" gstreamer1.0-plugins-base
    gstreamer1.0-plugins-good gstreamer1.0-plugins-bad gstreamer1.0-libav fonts-dejavu-core)
  debian_package(television tv-browser web "${television_depends}" "HbbTV television for page authors"
    "Runs HbbTV and CE-HTML pages on a desktop, with a real browser engine and\na real media player, and shows everything\
 that happens between the\npage, its media and the television.")
  set(CPACK_DEBIAN_TELEVISION_PACKAGE_RECOMMENDS ffmpeg)
  set(CPACK_DEBIAN_TELEVISION_PACKAGE_SUGGESTS qtwayland5)
  install(FILES ${CMAKE_BINARY_DIR}/tv-browser.1.gz ${CMAKE_BINARY_DIR}/tv-browser-demo.1.gz
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT television OPTIONAL)
endif()
if(TARGET avcontrol-compliance)
  debian_package(compliance avcontrol-compliance utils "" "Compliance kit for televisions with the A/V Control plug-in"
    "Proves on the target that a television's own libraries keep every\npromise that the plug-in relies on.")
endif()

include(CPack)
