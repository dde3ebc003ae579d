# What `make install` puts on the system, and the Debian package built from it.
include(GNUInstallDirs)

foreach(programa vorimesk vorimesk-cli pelmorad)
  if(TARGET ${programa})
    install(TARGETS ${programa} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()

install(FILES data/vorimesk.desktop data/pelmorad.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/es.vorimesk.Vorimesk.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES data/iconos/vorimesk.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(DIRECTORY ${CMAKE_BINARY_DIR}/iconos/
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(DIRECTORY data/ayuda/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vorimesk/ayuda)
# The headless meter as a user service (systemctl --user enable --now
# vorimesk-vigilar); systemd looks in <prefix>/lib/systemd/user for /usr and
# /usr/local alike.
install(FILES data/systemd/vorimesk-vigilar.service DESTINATION lib/systemd/user)
# Manual pages and the changelog go compressed, as Debian keeps them.
set(_comprimidos)
foreach(_fuente man/vorimesk.1 man/vorimesk-cli.1 man/pelmorad.1 debian/changelog)
  get_filename_component(_nombre ${_fuente} NAME)
  set(_gz ${CMAKE_BINARY_DIR}/man/${_nombre}.gz)
  add_custom_command(
    OUTPUT ${_gz}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
    COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/data/${_fuente} > ${_gz}
    DEPENDS ${PROJECT_SOURCE_DIR}/data/${_fuente}
    COMMENT "Comprimiendo ${_nombre}")
  list(APPEND _comprimidos ${_gz})
endforeach()
add_custom_target(pagina_manual ALL DEPENDS ${_comprimidos})
install(FILES ${CMAKE_BINARY_DIR}/man/vorimesk.1.gz ${CMAKE_BINARY_DIR}/man/vorimesk-cli.1.gz
              ${CMAKE_BINARY_DIR}/man/pelmorad.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/man/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vorimesk)
install(FILES data/debian/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vorimesk)
# The pppd hook's journal: made at boot with its owner and mode, and pruned.
install(FILES data/tmpfiles/vorimesk.conf DESTINATION lib/tmpfiles.d)

# The shipped tariff book as a file, for users who want to start over by hand.
if(TARGET vorimesk-cli)
  set(_libro ${CMAKE_BINARY_DIR}/libro-de-serie)
  add_custom_command(
    OUTPUT ${_libro}/Tarifas.Dat
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${_libro}
    COMMAND vorimesk-cli --datos ${_libro} tarifas > ${CMAKE_BINARY_DIR}/libro-de-serie.txt
    DEPENDS vorimesk-cli
    COMMENT "Escribiendo el libro de tarifas de serie")
  add_custom_target(libro_de_serie ALL DEPENDS ${_libro}/Tarifas.Dat)
  install(FILES ${_libro}/Tarifas.Dat DESTINATION ${CMAKE_INSTALL_DATADIR}/vorimesk)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vorimesk)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Equipo Vorimesk <equipo@vorimesk.es>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "contador de coste de las conexiones a Internet por modem")
# Debian wants the long description in lines of at most 80 characters.
set(CPACK_PACKAGE_DESCRIPTION
    "Vigila el enlace PPP, cronometra y tarifica cada llamada con las tarifas\ndel usuario, guarda un registro de llamadas y lo filtra, grafica, imprime\ny archiva.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ppp")
# Qt's own dialogs (print, open file) in Spanish; merged with the library
# dependencies that dpkg-shlibdeps finds.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-translations-l10n")
# libsdbus-c++1 comes in through the shared-library dependencies; these are
# what the NetworkManager links need on the other end of the bus.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "network-manager, modemmanager")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/data/debian/conffiles ${PROJECT_SOURCE_DIR}/data/debian/postinst
    ${PROJECT_SOURCE_DIR}/data/debian/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The pppd hook must land in /etc/ppp whatever the prefix, so the package is
# staged with DESTDIR and its own /usr prefix.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
include(CPack)
