# The Debian package: `cpack -G DEB` in the build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brenwick)
set(CPACK_PACKAGE_VENDOR "The Brenwick developers")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "reads your instant messages aloud")
file(READ ${packaged}/description CPACK_PACKAGE_DESCRIPTION)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# The folders of the package, whatever the umask of who makes it.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${BRENWICK_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${BRENWICK_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries are found in the program itself; these two it opens while it runs.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "espeak-ng-data, libqt6svg6")
# Its voices are in the list where it is installed.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "speech-dispatcher")
include(CPack)
