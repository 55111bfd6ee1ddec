# The Debian package, made by CPack from the install rules: glyphora_<version>_<arch>.deb
# installed under /usr. Its Depends are read from the program's shared libraries by
# dpkg-shlibdeps, plus what the program loads at run time without linking it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME glyphora)
set(CPACK_PACKAGE_VENDOR "Glyphora")
set(CPACK_PACKAGE_CONTACT "Glyphora developers <glyphora@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "font viewer with a French user interface")
set(CPACK_PACKAGE_DESCRIPTION
    "Glyphora lists the system's font families, shows sample texts in any font, size and style, measures them, prints test pages, previews font files that are not installed (TrueType, OpenType, collections, WOFF, WOFF2) and installs them for the user.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://example.org/glyphora")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded at run time: Qt's platform plug-ins (xcb) and its French translations.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
include(CPack)
