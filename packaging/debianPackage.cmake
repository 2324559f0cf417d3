# The Debian package: what `cpack` is told. scripts/check-package.sh builds it and tries it out.

# The first line of the changelog is "kinetra (VERSION-REVISION) ...". Its version has to be the project's, so that a
# new version is not packaged without a word about it.
file(STRINGS changelog newest_entry LIMIT_COUNT 1)
if(NOT newest_entry MATCHES "^kinetra \\((.+)-([0-9]+)\\) ")
  message(FATAL_ERROR "packaging/changelog does not begin with \"kinetra (VERSION-REVISION)\": ${newest_entry}")
endif()
set(packaged_version ${CMAKE_MATCH_1})
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_2})
if(NOT packaged_version STREQUAL kinetra_VERSION)
  message(FATAL_ERROR "packaging/changelog has no entry for version ${kinetra_VERSION}; its newest: ${newest_entry}")
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS changelog)
compressed_file(${CMAKE_CURRENT_SOURCE_DIR}/changelog changelog.Debian ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kinetra)
set(CPACK_PACKAGE_VERSION ${kinetra_VERSION})
# A package has to name an address; ".invalid" is the ending of those that do not exist.
set(CPACK_PACKAGE_CONTACT "Kinetra maintainers <maintainers@kinetra.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "workbench for EtherCAT slave descriptions with export for controllers")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Kinetra Xml Parser opens EtherCAT slave descriptions (ESI files), shows what
each device declares, lets the engineer set device types, drive axes, modules
and startup commands, and exports the chosen devices as one binary KTL file for
the motion controller, with a text dump beside it.
.
The companion command ktl does the same without a window, for build servers.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# No program links these. Without the fonts, Chinese texts of the window and of ESI files show as boxes; without the
# plugin the window opens on a Wayland desktop all the same, through its X11 server.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-noto-cjk)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qtwayland5)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
include(CPack)
