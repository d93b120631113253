# What is installed where, and the Debian package made of it.
include(GNUInstallDirs)

set(PISTARO_DATA_FOLDER ${CMAKE_INSTALL_DATADIR}/pistaro)
if(WIN32)
    set(PISTARO_DATA_FOLDER .)
    install(TARGETS pistaro RUNTIME DESTINATION .)
else()
    install(TARGETS pistaro)
    install(FILES packaging/linux/pistaro.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES packaging/linux/pistaro.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
    install(FILES packaging/pistaro.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
install(FILES src/storage/corvel.ini DESTINATION ${PISTARO_DATA_FOLDER})
# The samples' folder is a good first working directory, and the manual is looked for there.
install(DIRECTORY samples/ DESTINATION ${PISTARO_DATA_FOLDER}/samples
    FILES_MATCHING PATTERN "*.trk" PATTERN "scripts" EXCLUDE)
install(DIRECTORY manual/ DESTINATION ${PISTARO_DATA_FOLDER}/samples/manual
    FILES_MATCHING PATTERN "*.html" PATTERN "*.png" PATTERN "*.gif")

set(CPACK_PACKAGE_NAME pistaro)
set(CPACK_PACKAGE_VENDOR "Pistaro")
set(CPACK_PACKAGE_CONTACT "The Pistaro developers <pistaro@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION "Compose slot-car circuits from the catalogue of two track systems, see them to scale in
your room, and learn lane lengths, counts, prices and what is left to buy.")
set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
include(CPack)
