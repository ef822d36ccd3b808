# The Debian package: the program with its libraries, desktop entry, icon, manual page, templates and pages for the
# office's administrator. Headers stay with those who build hosts.

set(share ${CMAKE_INSTALL_DATADIR})
set(from ${PROJECT_SOURCE_DIR}/packaging)
configure_file(${from}/ledgora.1.in ${PROJECT_BINARY_DIR}/ledgora.1 @ONLY)
find_program(GZIP gzip REQUIRED)
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/ledgora.1.gz
  COMMAND ${GZIP} -9nkf ${PROJECT_BINARY_DIR}/ledgora.1 DEPENDS ${PROJECT_BINARY_DIR}/ledgora.1)
add_custom_target(manual_page ALL DEPENDS ${PROJECT_BINARY_DIR}/ledgora.1.gz)

install(FILES ${PROJECT_BINARY_DIR}/ledgora.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime)
install(FILES ${from}/ledgora.desktop DESTINATION ${share}/applications COMPONENT runtime)
install(FILES ${from}/ledgora.svg DESTINATION ${share}/icons/hicolor/scalable/apps COMPONENT runtime)
foreach(size 32 64 128)
  install(FILES ${from}/ledgora-${size}.png DESTINATION ${share}/icons/hicolor/${size}x${size}/apps RENAME ledgora.png
    COMPONENT runtime)
endforeach()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/templates/ DESTINATION ${share}/ledgora/templates COMPONENT runtime
  FILES_MATCHING PATTERN "*.doc")
install(FILES ${from}/copyright ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/docs/data-care.md
  ${PROJECT_SOURCE_DIR}/docs/data-folder.md ${PROJECT_SOURCE_DIR}/docs/shared-server.md
  DESTINATION ${share}/doc/ledgora COMPONENT runtime)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ledgora)
set(CPACK_PACKAGE_VENDOR "the Ledgora authors")
set(CPACK_PACKAGE_CONTACT "the Ledgora authors <ledgora@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "billing for Indian tax practitioners and small accounting offices")
set(CPACK_PACKAGE_DESCRIPTION "Tax invoices numbered by series and financial year, receipts, dues, several companies
and several users, on a private or a shared database server.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
# What the program needs beyond the libraries it is linked with: packages.txt, section run.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "mariadb-server-core, qt6-qpa-plugins, fonts-liberation2, fonts-noto-core, util-linux")
include(CPack)
