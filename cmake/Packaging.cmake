# What is installed beside the program, and the Debian package: cpack -G DEB.
set(packaging "${CMAKE_SOURCE_DIR}/packaging")
set(package_files "${CMAKE_BINARY_DIR}/packaging")
configure_file("${packaging}/changelog.in" "${package_files}/changelog" @ONLY)

# A Debian package wants both compressed, without a time stamp, so that two builds give the same file.
find_program(GZIP_PROGRAM gzip)
function(install_compressed from name folder)
    if(NOT GZIP_PROGRAM)
        install(FILES "${from}" DESTINATION "${folder}" RENAME "${name}")
        return()
    endif()
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${from}")
    execute_process(COMMAND ${GZIP_PROGRAM} -9nc "${from}" OUTPUT_FILE "${package_files}/${name}.gz" COMMAND_ERROR_IS_FATAL ANY)
    install(FILES "${package_files}/${name}.gz" DESTINATION "${folder}")
endfunction()

install_compressed("${packaging}/jobwright.1" jobwright.1 "${CMAKE_INSTALL_MANDIR}/man1")
install_compressed("${package_files}/changelog" changelog "${CMAKE_INSTALL_DATADIR}/doc/jobwright")
install(FILES "${packaging}/copyright" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/jobwright")
install(FILES "${packaging}/jobwright.bash-completion" DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions"
        RENAME jobwright)
install(FILES "${packaging}/jobwright.desktop" DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${packaging}/jobwright-mime.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages" RENAME jobwright.xml)
install(FILES "${packaging}/jobwright.svg" DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME jobwright)
set(CPACK_PACKAGE_CONTACT "Jobwright maintainers <maintainers@jobwright.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "personal campaign manager for job seekers")
set(CPACK_PACKAGE_DESCRIPTION
"Jobwright keeps a whole job search in one local database: companies, open
positions, people, documents, every contact with them, and a calendar of
events and tasks. Each position is walked through eleven steps, from the
first look at the company to the offer.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Plugins are loaded, not linked, so nothing finds them by itself: the SVG icons, and the theme with the icons.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, breeze-icon-theme")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
    WORLD_EXECUTE)
include(CPack)
