# cmake --install and the Debian package. The program is installed in one folder with its studies,
# Bibles and maps, and a command of the same name starts it there. The folder's name contains
# "Program", by which the program knows that it is installed and offers "Enter".
include(GNUInstallDirs)

set(SPARROWFIELD_DISC "${PROJECT_SOURCE_DIR}/build/disc" CACHE PATH "The disc, made by packaging/make_disc.sh, that is installed")
set(home ${CMAKE_INSTALL_LIBDIR}/sparrowfield/Program)
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(home lib/sparrowfield/Program)
endif()
set(SPARROWFIELD_HOME ${CMAKE_INSTALL_PREFIX}/${home})
configure_file(packaging/debian/sparrowfield.sh.in ${PROJECT_BINARY_DIR}/install/sparrowfield @ONLY)

install(TARGETS sparrowfield DESTINATION ${home})
install(DIRECTORY ${SPARROWFIELD_DISC}/ DESTINATION ${home}
    PATTERN "sparrowfield" EXCLUDE PATTERN "sparrowfield-*" EXCLUDE PATTERN "Setup.exe" EXCLUDE
    PATTERN "README.txt" EXCLUDE PATTERN "icons" EXCLUDE PATTERN ".new-file" EXCLUDE)
install(TARGETS sparrowfield-kit sparrowfield-drive DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS ${PROJECT_BINARY_DIR}/install/sparrowfield DESTINATION ${CMAKE_INSTALL_BINDIR})
foreach(size 16 22 24 32 48 64 128 256)
    install(FILES artwork/pictures/icon-${size}.png RENAME sparrowfield.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES artwork/pictures/icon.svg RENAME sparrowfield.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/sparrowfield.desktop RENAME house.sparrowfield.Sparrowfield.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/debian/house.sparrowfield.Sparrowfield.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES docs/man/sparrowfield.1 docs/man/sparrowfield-kit.1 docs/man/sparrowfield-drive.1 docs/man/sparrowfield-setup.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES packaging/debian/copyright README.md CHANGELOG.md THIRD_PARTY.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/sparrowfield)
install(FILES docs/kit.md docs/drive.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/sparrowfield/docs)
install(DIRECTORY docs/formats DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/sparrowfield/docs)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sparrowfield)
set(CPACK_PACKAGE_VENDOR "Sparrowfield House")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "workbook for Bible studies, with two Bibles and nine maps")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# Strips the programs, and puts the symbols into a separate package.
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/package)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Sparrowfield House <house@sparrowfield.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded by name at run time: the window system's plug-ins, and fonts.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-liberation2 | fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, qt6-wayland")
include(CPack)
