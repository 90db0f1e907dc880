# What `cmake --install` puts where; GNUInstallDirs knows the places.
include(GNUInstallDirs)

set(BRENWICK_ID org.brenwick.Brenwick)
set(BRENWICK_MAINTAINER "The Brenwick developers <developers@${BRENWICK_PUBLISHER}>")
set(BRENWICK_HOMEPAGE "http://${BRENWICK_PUBLISHER}/")
# The day of the newest version, also in packaging/changelog.in.
set(BRENWICK_RELEASED "2026-11-21")
set(packaged ${PROJECT_SOURCE_DIR}/packaging)
set(filled ${PROJECT_BINARY_DIR}/packaging)

# Those with @…@ in them are filled in.
foreach(file IN ITEMS brenwick.1 brenwick-rehearse.1 ${BRENWICK_ID}.metainfo.xml copyright changelog)
  configure_file(${packaged}/${file}.in ${filled}/${file} @ONLY)
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${filled}/NEWS COPYONLY)

# Manual pages and the change logs are read packed.
find_program(GZIP_PROGRAM gzip REQUIRED)
foreach(file IN ITEMS brenwick.1 brenwick-rehearse.1 changelog NEWS)
  add_custom_command(OUTPUT ${filled}/${file}.gz
    # Without the name and the time, so that the same build gives the same file.
    COMMAND ${GZIP_PROGRAM} -9nkf ${filled}/${file}
    DEPENDS ${filled}/${file}
    COMMENT "Packing ${file}"
    VERBATIM)
  list(APPEND packed ${filled}/${file}.gz)
endforeach()
add_custom_target(packed-pages ALL DEPENDS ${packed})

foreach(program IN ITEMS brenwick brenwick-rehearse)
  if(TARGET ${program})
    install(TARGETS ${program})
  endif()
endforeach()
if(TARGET brenwick-voice)
  install(TARGETS brenwick-voice DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/brenwick)
endif()
# The program looks for this folder beside its own: ../share/brenwick.
install(DIRECTORY ${PROJECT_BINARY_DIR}/program/ DESTINATION ${CMAKE_INSTALL_DATADIR}/brenwick)
install(FILES ${packaged}/${BRENWICK_ID}.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${filled}/${BRENWICK_ID}.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${PROJECT_SOURCE_DIR}/src/qt/icons/brenwick.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME ${BRENWICK_ID}.svg)
install(FILES ${filled}/brenwick.1.gz ${filled}/brenwick-rehearse.1.gz
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${packaged}/brenwick.bash-completion
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME brenwick)
install(FILES ${filled}/changelog.gz ${filled}/NEWS.gz ${filled}/copyright
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/brenwick)
