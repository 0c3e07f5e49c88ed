# What `cmake --install` puts where, and the Debian package CPack makes of it.
include(GNUInstallDirs)

set(MARL_APP_ID org.marl_editor.Marl)
set(MARL_RELEASE_DATE 2026-11-23)
set(MARL_CHANGELOG_DATE "Mon, 23 Nov 2026 12:00:00 +0000")

install(TARGETS marl ${MARL_TOOL_TARGETS}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  BUNDLE DESTINATION .)

if(UNIX AND NOT APPLE)
  set(MARL_DIST ${CMAKE_SOURCE_DIR}/dist/linux)
  set(MARL_DIST_OUT ${CMAKE_BINARY_DIR}/dist)

  # The icon's PNG sizes are drawn by the program's own picture code, so the
  # desktop shows the same picture as the window frames.
  set(MARL_ICON_SIZES 16 24 32 48 64 128 256)
  add_executable(marl-icons ${CMAKE_SOURCE_DIR}/dist/make_icons.cpp)
  target_link_libraries(marl-icons PRIVATE marl_ui)
  set(MARL_ICON_PNGS)
  foreach(size ${MARL_ICON_SIZES})
    list(APPEND MARL_ICON_PNGS ${MARL_DIST_OUT}/icons/${size}/${MARL_APP_ID}.png)
  endforeach()
  add_custom_command(OUTPUT ${MARL_ICON_PNGS}
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
            $<TARGET_FILE:marl-icons> ${MARL_DIST_OUT}/icons ${MARL_APP_ID} ${MARL_ICON_SIZES}
    DEPENDS marl-icons
    COMMENT "Drawing the icon's PNG sizes"
    VERBATIM)

  # Manual pages, compressed as Debian ships them.
  find_program(MARL_GZIP gzip)
  set(MARL_MAN_PAGES)
  foreach(page marl marl-check)
    if(MARL_GZIP)
      set(out ${MARL_DIST_OUT}/${page}.1.gz)
      add_custom_command(OUTPUT ${out}
        COMMAND ${MARL_GZIP} -9 -n -c ${MARL_DIST}/${page}.1 > ${out}
        DEPENDS ${MARL_DIST}/${page}.1
        VERBATIM)
    else()
      set(out ${MARL_DIST}/${page}.1)
    endif()
    list(APPEND MARL_MAN_PAGES ${out})
  endforeach()

  # The package's copyright and changelog, where Debian looks for them.
  configure_file(${MARL_DIST}/changelog.in ${MARL_DIST_OUT}/changelog @ONLY)
  set(MARL_CHANGELOG ${MARL_DIST_OUT}/changelog)
  if(MARL_GZIP)
    set(MARL_CHANGELOG ${MARL_DIST_OUT}/changelog.gz)
    add_custom_command(OUTPUT ${MARL_CHANGELOG}
      COMMAND ${MARL_GZIP} -9 -n -c ${MARL_DIST_OUT}/changelog > ${MARL_CHANGELOG}
      DEPENDS ${MARL_DIST_OUT}/changelog
      VERBATIM)
  endif()

  add_custom_target(marl-desktop-files ALL
    DEPENDS ${MARL_ICON_PNGS} ${MARL_MAN_PAGES} ${MARL_CHANGELOG})

  configure_file(${MARL_DIST}/${MARL_APP_ID}.metainfo.xml.in
    ${MARL_DIST_OUT}/${MARL_APP_ID}.metainfo.xml @ONLY)

  install(FILES ${MARL_DIST}/${MARL_APP_ID}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${MARL_DIST_OUT}/${MARL_APP_ID}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${MARL_DIST}/${MARL_APP_ID}.mime.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME ${MARL_APP_ID}.xml)
  install(FILES ${MARL_DIST}/${MARL_APP_ID}.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  foreach(size ${MARL_ICON_SIZES})
    install(FILES ${MARL_DIST_OUT}/icons/${size}/${MARL_APP_ID}.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
  install(FILES ${MARL_MAN_PAGES} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${MARL_EXAMPLES} DESTINATION ${CMAKE_INSTALL_DATADIR}/marl/examples)
  install(FILES ${MARL_DIST}/copyright ${MARL_CHANGELOG}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/marl)
endif()

# `make package`: a Debian package whose dependencies dpkg-shlibdeps reads
# from the programs' shared libraries.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME marl)
set(CPACK_PACKAGE_VENDOR "The Marl Project")
set(CPACK_PACKAGE_CONTACT "The Marl Project <maintainers@marl-editor.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for CircleMUD zone files")
set(CPACK_PACKAGE_DESCRIPTION
  "Marl edits the rooms (.wld), mobiles (.mob) and objects (.obj) of one zone
of a CircleMUD game server at a time, and writes files the server boots
from.  marl-check reads zone files from a terminal the way the editor does.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://marl-editor.org)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
