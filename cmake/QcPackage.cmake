# Install rules and the Debian package: the program and quillcast-tag on the PATH, a desktop
# entry with its icon, and the sample files. `scripts/package` builds quillcast_*.deb.
include(GNUInstallDirs)

if(TARGET quillcast)
  install(TARGETS quillcast RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
if(TARGET quillcast-tag)
  install(TARGETS quillcast-tag RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(FILES ${PROJECT_SOURCE_DIR}/assets/quillcast.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/assets/skin/logo.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/64x64/apps RENAME quillcast.png)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/assets/samples/
        DESTINATION ${CMAKE_INSTALL_DATADIR}/quillcast/samples FILES_MATCHING PATTERN "*.mp3")
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillcast)
set(CPACK_PACKAGE_VENDOR "quill cast")
set(CPACK_PACKAGE_CONTACT "quill cast <quillcast@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "sends a batch of MP3 files by e-mail through an AOL client")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
  "quill cast keeps two recipient lists, a subject and a body template and folders of MP3 "
  "files, and makes a running AOL client write one mail per chosen file with the file "
  "attached. Where no AOL client can run it drives its own simulated client, shown beside "
  "it. Also holds quillcast-tag, a command-line ID3v1 tag reader and writer.")
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)  # quillcast_<version>_<arch>.deb
# The Qt and C++ run-time libraries the binaries link, found by dpkg-shlibdeps.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The xcb platform plugin is loaded at run time, so no library dependency names it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_STRIP_FILES ON)
include(CPack)
