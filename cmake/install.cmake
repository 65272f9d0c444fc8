# Where an installed copy puts its files, and the Debian package made of them.
# The programs find their data from their own place (bin/../share/varkesh).

set(VARKESH_DATA_DESTINATION ${CMAKE_INSTALL_DATADIR}/varkesh)
set(VARKESH_ICON_SIZES 16 22 24 32 48 64 128 256)

install(TARGETS varkesh varkesh-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${VARKESH_RUNTIME_DIR}/r.opk ${PROJECT_SOURCE_DIR}/data/ReadMe.txt
        DESTINATION ${VARKESH_DATA_DESTINATION})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/help DESTINATION ${VARKESH_DATA_DESTINATION})

install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/varkesh.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/varkesh.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
foreach(size ${VARKESH_ICON_SIZES})
  install(FILES ${CMAKE_BINARY_DIR}/pack/icons/varkesh-${size}.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
          RENAME varkesh.png)
endforeach()
install(FILES ${CMAKE_BINARY_DIR}/pack/icons/varkesh.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_PACKAGE_NAME varkesh)
set(CPACK_PACKAGE_VENDOR "The Varkesh developers")
set(CPACK_PACKAGE_CONTACT "The Varkesh developers <varkesh@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "chess variant for up to four players")
set(CPACK_PACKAGE_DESCRIPTION
    "Varkesh is a chess variant for four kingdoms on a diamond board, played on one\n\
machine, against computer opponents of three personalities, or over the network.")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The Qt plugins load at run time and are not seen by the library scan.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "desktop-file-utils, shared-mime-info, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
