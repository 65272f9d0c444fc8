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

# What a Debian package carries beside the program: manual pages, the
# copyright and the changelog, the compressed files made without time stamps.
set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc/varkesh)
set(compressed)
foreach(source man/varkesh.6 man/varkesh-cli.6 debian/changelog)
  get_filename_component(name ${source} NAME)
  set(target ${CMAKE_BINARY_DIR}/compressed/${name}.gz)
  add_custom_command(
    OUTPUT ${target}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/compressed
    COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/data/${source} > ${target}
    DEPENDS ${PROJECT_SOURCE_DIR}/data/${source})
  list(APPEND compressed ${target})
endforeach()
add_custom_target(varkesh_compressed_docs ALL DEPENDS ${compressed})
install(FILES ${CMAKE_BINARY_DIR}/compressed/varkesh.6.gz
              ${CMAKE_BINARY_DIR}/compressed/varkesh-cli.6.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
install(FILES ${CMAKE_BINARY_DIR}/compressed/changelog.gz
              ${PROJECT_SOURCE_DIR}/data/debian/copyright
        DESTINATION ${doc_dir})

set(CPACK_PACKAGE_NAME varkesh)
set(CPACK_PACKAGE_VENDOR "The Varkesh developers")
set(CPACK_PACKAGE_CONTACT "The Varkesh developers <varkesh@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "chess variant for up to four players")
set(CPACK_PACKAGE_DESCRIPTION
    "Varkesh is a chess variant for four kingdoms on a diamond board,\n\
played on one machine, against computer opponents of three\n\
personalities, or over the network.")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The programs live in bin, not /usr/games, so the section is not "games".
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The Qt plugins load at run time and are not seen by the library scan.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "desktop-file-utils, shared-mime-info, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
