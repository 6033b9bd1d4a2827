# The Debian package, with the symbols of its programs in another: `cpack` in the build folder. scripts/package calls it.
# Debian wants an address; nobody is behind this one, and nobody can be.
set(contact "Roomlattice authors <roomlattice@roomlattice.invalid>")

# The changelog in Debian's own form, for a package that has no other.
set(changelog ${CMAKE_CURRENT_BINARY_DIR}/changelog)
add_custom_command(
  OUTPUT ${changelog}
  COMMAND env LC_ALL=C.UTF-8 awk -v "contact=${contact}" -f ${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog.awk
          ${PROJECT_SOURCE_DIR}/CHANGELOG.md > ${changelog}
  DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md debian/changelog.awk
  VERBATIM)
install_compressed(${changelog} ${documents})

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME roomlattice)
set(CPACK_PACKAGE_CONTACT "${contact}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "tell virtual desktops apart by name and colour")
set(CPACK_PACKAGE_DESCRIPTION
    "Roomlattice shows which virtual desktop is in front, by name and colour, in a
small item at the edge of the screen. Its menu lists all desktops, to go to
one or to rename it in place, and each desktop has a label with its name in
large type.

Keys, scripts and bars reach it by roomlatticectl and over D-Bus. It needs
X11 and a window manager that supports EWMH.")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/packages)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
                                                WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "default-dbus-session-bus | dbus-session-bus")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
