# A package for Debian: "cpack -G DEB" in the build folder.
set(package tarvo-print-features)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/${package})
install(FILES LICENSE DESTINATION ${documents} RENAME copyright)
install(FILES CHANGES DESTINATION ${documents} RENAME changelog)

set(CPACK_PACKAGE_NAME ${package})
set(CPACK_PACKAGE_VENDOR "Tarvo")
set(CPACK_PACKAGE_CONTACT "Tarvo Print Features authors <print-features@tarvo.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://www.tarvo.example/)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"A tab in the print dialogs of GTK 3 programs for what a Tarvo production printer
can do; tarvo-print, a print dialog for PDF documents and pictures; tarvo-ticket,
which exports, imports, shows and checks job tickets.

The tab is there for users who have the module in their list, see tarvo-print(1).")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS libcups2) # loaded when first needed, so no program names it
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "cups-client, librsvg2-common") # the latter for sharp pictures
set(CPACK_DEBIAN_PACKAGE_SUGGESTS bash-completion)
include(CPack)
