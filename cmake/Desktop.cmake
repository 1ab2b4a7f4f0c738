# What makes Pellora.app a program of the desktop: its command, menu entry,
# icon, software-centre entry and manual page.
set(app_id com.orvane.pellora)

install(CODE "
  set(bin \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  file(MAKE_DIRECTORY \"\${bin}\")
  file(CREATE_LINK ../${PELLORA_APP_DIR}/Pellora.app/Contents/MacOS/Pellora \"\${bin}/pellora\" SYMBOLIC)"
  COMPONENT pellora-launcher)
install(FILES packaging/${app_id}.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT pellora-launcher)
install(FILES packaging/${app_id}.metainfo.xml DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT pellora-launcher)
install(FILES packaging/${app_id}.svg DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT pellora-launcher)
foreach(size 48 128 256)
  install(FILES packaging/icons/${size}.png RENAME ${app_id}.png
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps" COMPONENT pellora-launcher)
endforeach()
install(FILES packaging/pellora.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT pellora-launcher)
install(DIRECTORY docs/ DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/pellora/docs" COMPONENT pellora-doc
  FILES_MATCHING PATTERN "*.md" PATTERN "*.csv" PATTERN "*.png" PATTERN "*.svg")
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/pellora" COMPONENT pellora-doc)
