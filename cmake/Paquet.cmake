# What the desktop wants to know of the program, and the Debian package.
include(GNUInstallDirs)

option(VELMIRA_PAQUET "Prepare the Debian package" OFF)

set(ressources ${PROJECT_SOURCE_DIR}/resources)
install(FILES ${ressources}/velmira.desktop ${ressources}/vigilo.desktop ${ressources}/memora.desktop
  ${ressources}/brikel.desktop ${ressources}/sauvan.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${ressources}/velmira.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo RENAME example.velmira.Velmira.metainfo.xml)
install(FILES ${ressources}/velmira.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

if(NOT VELMIRA_PAQUET)
  return()
endif()

# The program finds its delivered files below the prefix that it was built for.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  message(FATAL_ERROR "The package is built with -DCMAKE_INSTALL_PREFIX=/usr")
endif()

foreach(programme Velmira Vigilo Memora Brikel Sauvan velmira_jet)
  target_link_options(${programme} PRIVATE LINKER:-z,relro,-z,now)
endforeach()

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(GZIP gzip REQUIRED)
set(paquet ${PROJECT_BINARY_DIR}/paquet)
set(fichiers "")

add_custom_command(OUTPUT ${paquet}/velmira.png
  COMMAND ${CMAKE_COMMAND} -E make_directory ${paquet}
  COMMAND ${RSVG_CONVERT} --width 48 --height 48 --output ${paquet}/velmira.png
    ${ressources}/velmira.svg
  DEPENDS ${ressources}/velmira.svg VERBATIM)
list(APPEND fichiers ${paquet}/velmira.png)
install(FILES ${paquet}/velmira.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/48x48/apps)

# Without name and time: packages of the same files are the same.
function(comprimer source nom destination)
  add_custom_command(OUTPUT ${paquet}/${nom}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${paquet}
    COMMAND ${GZIP} -9nc ${source} > ${paquet}/${nom}
    DEPENDS ${source} VERBATIM)
  get_filename_component(base ${destination} NAME)
  get_filename_component(dossier ${destination} DIRECTORY)
  install(FILES ${paquet}/${nom} DESTINATION ${dossier} RENAME ${base})
  set(fichiers ${fichiers} ${paquet}/${nom} PARENT_SCOPE)
endfunction()

set(doc ${CMAKE_INSTALL_DATADIR}/doc/velmira)
foreach(nom velmira Vigilo Memora Brikel Sauvan)
  comprimer(${ressources}/${nom}.1 ${nom}.1.gz ${CMAKE_INSTALL_MANDIR}/man1/${nom}.1.gz)
  comprimer(${ressources}/${nom}.fr.1 ${nom}.fr.1.gz ${CMAKE_INSTALL_MANDIR}/fr/man1/${nom}.1.gz)
endforeach()
comprimer(${ressources}/debian/changelog changelog.Debian.gz ${doc}/changelog.Debian.gz)
comprimer(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz ${doc}/changelog.gz)
install(FILES ${ressources}/debian/copyright DESTINATION ${doc})
install(FILES ${ressources}/debian/lintian-overrides
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME velmira)
add_custom_target(velmira_paquet ALL DEPENDS ${fichiers})

# The package's own number stands in its changelog alone.
file(STRINGS ${ressources}/debian/changelog entree LIMIT_COUNT 1)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${ressources}/debian/changelog)
if(NOT entree MATCHES "^velmira \\(([^-]+)-([^)]+)\\)" OR
    NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "resources/debian/changelog has no entry for version ${PROJECT_VERSION}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmira)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_2})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Velmira authors <paquet@velmira.example>")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://velmira.example/")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "personal directory that prints envelopes (in French)")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Velmira keeps the people, firms and associations that you write to, with
their telephones, birthdays, notes and portraits, and prints the address of
any of them on an envelope of the right size. All texts are in French.
.
Velmira est un répertoire personnel qui imprime des enveloppes : fiches,
téléphones, anniversaires, notes et portraits, et l'adresse de chaque
correspondant sur une enveloppe au bon format.")

# The linked libraries are found by dpkg-shlibdeps. The rest is loaded at run time:
#   libqt6sql6-sqlite       without the driver no directory opens
#   libqt6svg6              draws the icons
#   breeze-icon-theme       most buttons show a picture alone; no other theme has all of them
#   qt6-translations-l10n   the boxes' Oui, Non and Annuler
#   fonts-dejavu-core       the windows' texts where the desktop has no font of its own; any other
#                           one for reading will do
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "libqt6sql6-sqlite, libqt6svg6, breeze-icon-theme, qt6-translations-l10n, \
fonts-dejavu-core | fonts-noto-core | fonts-cantarell")
#   fonts-liberation        stands in for Arial, the first font of an envelope: without it another
#                           one is printed, a little wider or narrower
#   qt6-wayland             windows on a Wayland desktop without the detour through X
#   qt6-gtk-platformtheme   fonts, colours and file choices of a GNOME desktop
#   xdg-utils               opens documents and addresses
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "fonts-liberation, qt6-wayland, qt6-gtk-platformtheme, xdg-utils")
#   cups                    printers; the built-in PDF does without
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups")

include(CPack)
