# What `cmake --install` puts where; GNUInstallDirs knows the places.
include(GNUInstallDirs)

set(BRENWICK_ID org.brenwick.Brenwick)
set(packaged ${PROJECT_SOURCE_DIR}/packaging)
configure_file(${packaged}/${BRENWICK_ID}.metainfo.xml.in ${BRENWICK_ID}.metainfo.xml @ONLY)
configure_file(${packaged}/brenwick.1.in brenwick.1 @ONLY)

install(TARGETS brenwick brenwick-rehearse)
# The program looks for this folder beside its own: ../share/brenwick.
install(DIRECTORY ${PROJECT_BINARY_DIR}/program/ DESTINATION ${CMAKE_INSTALL_DATADIR}/brenwick)
install(FILES ${packaged}/${BRENWICK_ID}.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${BRENWICK_ID}.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${PROJECT_SOURCE_DIR}/src/desktop/qt/icons/brenwick.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME ${BRENWICK_ID}.svg)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/brenwick.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${packaged}/brenwick.bash-completion
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME brenwick)
