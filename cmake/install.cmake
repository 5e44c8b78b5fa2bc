# cmake --install: one component for each kind of user.
#   plugin      avcontrol-plugin.so, its framework, the NPAPI module
#   dev         headers, CMake package and pkg-config file for integrators
#   television  tv-browser with its player, the demonstration page, the films' script
#   compliance  the compliance kit
# Everything finds its neighbours by relative paths, so an installed tree can be moved or put below a DESTDIR.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(private_libraries ${CMAKE_INSTALL_LIBDIR}/avcontrol)
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/avcontrol)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/avcontrol)
set(shared_data ${CMAKE_INSTALL_DATADIR}/avcontrol)

# install_private(COMPONENT TARGET...): libraries that find each other in their own folder.
function(install_private component)
  set_target_properties(${ARGN} PROPERTIES INSTALL_RPATH $ORIGIN)
  install(TARGETS ${ARGN} LIBRARY DESTINATION ${private_libraries} COMPONENT ${component})
endfunction()

set_target_properties(avcontrol-plugin PROPERTIES EXPORT_NAME plugin INSTALL_RPATH $ORIGIN)
set_target_properties(hbbtv-plugin-framework PROPERTIES EXPORT_NAME framework INSTALL_RPATH $ORIGIN)
install(TARGETS avcontrol-plugin hbbtv-plugin-framework platform-headers EXPORT avcontrol-targets
  LIBRARY DESTINATION ${private_libraries} COMPONENT plugin
  INCLUDES DESTINATION ${headers})
install(EXPORT avcontrol-targets NAMESPACE avcontrol:: DESTINATION ${package_folder} COMPONENT dev)
install(DIRECTORY hbbtv-plugins/av-control/inc/ hbbtv-plugins/common/inc/ platform/include/
  DESTINATION ${headers} COMPONENT dev FILES_MATCHING PATTERN "*.h")
configure_package_config_file(cmake/avcontrol-config.cmake.in avcontrol-config.cmake
  INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(avcontrol-config-version.cmake COMPATIBILITY SameMajorVersion)
file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig ${prefix_from_pkgconfig})
configure_file(cmake/avcontrol-plugin.pc.in avcontrol-plugin.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/avcontrol-config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/avcontrol-config-version.cmake
  DESTINATION ${package_folder} COMPONENT dev)
# Linkers look for names that begin with lib; programs go on to ask for avcontrol-plugin.so.
file(CREATE_LINK avcontrol-plugin.so ${CMAKE_CURRENT_BINARY_DIR}/libavcontrol-plugin.so SYMBOLIC)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/libavcontrol-plugin.so DESTINATION ${private_libraries} COMPONENT dev)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/avcontrol-plugin.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT dev)
install(FILES docs/porting.md docs/interface.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev)

if(AVCONTROL_DESKTOP)
  install_private(television media-control hbbtv-platform)
  set_target_properties(npavcontrol PROPERTIES INSTALL_RPATH $ORIGIN/..)
  install(TARGETS npavcontrol LIBRARY DESTINATION ${private_libraries}/npapi COMPONENT plugin)
  file(RELATIVE_PATH libraries_from_bin /${CMAKE_INSTALL_BINDIR} /${private_libraries})
  set_target_properties(tv-browser PROPERTIES INSTALL_RPATH $ORIGIN/${libraries_from_bin})
  install(TARGETS tv-browser RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT television)
  install(PROGRAMS packaging/tv-browser-demo DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT television)
  install(FILES packaging/tv-browser.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT television)
  install(FILES packaging/tv-browser.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT television)
  install(DIRECTORY pages DESTINATION ${shared_data} COMPONENT television)
  install(PROGRAMS scripts/make-media DESTINATION ${shared_data}/scripts COMPONENT television)
  install(FILES scripts/common.sh DESTINATION ${shared_data}/scripts COMPONENT television)
endif()

include(cmake/packages.cmake)
