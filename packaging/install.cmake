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
install(FILES packaging/debian/copyright README.md THIRD_PARTY.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/sparrowfield)
install(FILES CHANGELOG.md RENAME changelog DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/sparrowfield)
install(FILES packaging/debian/changelog RENAME changelog.Debian DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/sparrowfield)
install(FILES packaging/debian/lintian-overrides RENAME sparrowfield DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides)
install(FILES docs/kit.md docs/drive.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/sparrowfield/docs)
install(DIRECTORY docs/formats DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/sparrowfield/docs)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sparrowfield)
set(CPACK_PACKAGE_VENDOR "Sparrowfield House")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "workbook for Bible studies, with two Bibles and nine maps")
set(CPACK_PACKAGE_DESCRIPTION "Sparrowfield is a workbook for one person and a Bible. You choose a study and a
lesson from a catalogue, read the passages beside the questions, write your own
answer to each question, and only then look at the publisher's answer. What you
write is stored as you type, and every lesson opens where you left it.

The package holds two studies in eighteen parts, the King James Version, the
World English Bible, and nine maps. A Bible reader keeps a note for each
chapter. The program never needs a network. sparrowfield-kit prints and backs
up your answers and makes studies of your own; sparrowfield-drive runs the
program from a script, without a screen.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian/compress_documents.cmake)
# Strips the programs, and puts the symbols into a separate package.
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/package)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1) # as in packaging/debian/changelog
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Sparrowfield House <house@sparrowfield.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded by name at run time: the plug-ins for X11 and Wayland, and fonts.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, qt6-wayland, fonts-liberation2 | fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core")
include(CPack)
