# What `cmake --install` puts where, and the Debian package made of it.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/quillon)

install(TARGETS quillon-console quillon-practice)
install(FILES profiles/Harrowgate.qlnx DESTINATION ${CMAKE_INSTALL_DATADIR}/quillon)
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)
if(QUILLON_DESKTOP)
  install(TARGETS quillon)
  install(FILES src/desktop/quillon.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES src/desktop/icons/quillon.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillon)
set(CPACK_PACKAGE_CONTACT "The Quillon developers <quillon@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Audit triggers for SQL Server databases")
set(CPACK_PACKAGE_DESCRIPTION
    "Writes audit triggers from a template, installs them, reports over the audit log and takes audited
 transactions back. With a command line for the same work, and a practice server to try it on.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION database)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The driver is loaded by name: no library list tells of it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "tdsodbc, odbcinst")
if(QUILLON_DESKTOP)
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, qt6-wayland")
endif()
include(CPack)
