# What `cmake --install` and the Debian package bring, below the prefix:
#   lib/vorlix/    the program and its sample element files in one folder
#   bin/vorlix     starts a copy of that folder in the user's home, where the program can keep its settings
#   share/         launcher, icons, AppStream metadata, man page, completions, copyright, schema of the answers
#   lib/, include/ the library, see library.cmake
# The start script finds lib/ beside bin/, so the two names are fixed.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)  # nothing but the program is needed; the tests stay unbuilt
set(desktop ${CMAKE_CURRENT_SOURCE_DIR}/resources/desktop)

# What Debian wants compressed; without the time of day, so that two builds of one tree are equal.
find_program(GZIP gzip REQUIRED)
foreach(text ${desktop}/vorlix.1 ${CMAKE_CURRENT_SOURCE_DIR}/packaging/debian/changelog)
  get_filename_component(name ${text} NAME)
  execute_process(COMMAND ${GZIP} -9nc ${text} OUTPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz
    COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${text})
endforeach()
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vorlix.1.gz DESTINATION share/man/man1)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz DESTINATION share/doc/vorlix)

install(TARGETS vorlix RUNTIME DESTINATION lib/vorlix)
install(DIRECTORY resources/elements/ DESTINATION lib/vorlix FILES_MATCHING PATTERN "*.txt")
install(PROGRAMS ${desktop}/vorlix.sh DESTINATION bin RENAME vorlix)
install(FILES ${desktop}/io.vorlix.Vorlix.desktop DESTINATION share/applications)
install(FILES ${desktop}/io.vorlix.Vorlix.metainfo.xml DESTINATION share/metainfo)
install(FILES ${CMAKE_CURRENT_SOURCE_DIR}/packaging/debian/copyright DESTINATION share/doc/vorlix)
install(FILES ${desktop}/completions/vorlix.bash DESTINATION share/bash-completion/completions RENAME vorlix)
install(FILES ${desktop}/completions/_vorlix DESTINATION share/zsh/site-functions)
install(FILES ${desktop}/completions/vorlix.fish DESTINATION share/fish/vendor_completions.d)
install(FILES ${CMAKE_CURRENT_SOURCE_DIR}/docs/answers.schema.json DESTINATION share/vorlix)
install(DIRECTORY ${desktop}/hicolor DESTINATION share/icons)

# A desktop finds the command in /usr and /usr/local (the folder in which CPack packs ends in /usr as well). Anywhere
# else the launcher names it in full, unless the path has a character that the quotes of a launcher do not hold.
install(CODE [[
  if(NOT CMAKE_INSTALL_PREFIX MATCHES "/usr(/local)?$|[\"`$%\\\\]")
    set(launcher "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/share/applications/io.vorlix.Vorlix.desktop")
    get_filename_component(prefix "${CMAKE_INSTALL_PREFIX}" ABSOLUTE)
    file(READ "${launcher}" text)
    string(REPLACE "Exec=vorlix" "Exec=\"${prefix}/bin/vorlix\"" text "${text}")
    file(WRITE "${launcher}" "${text}")
  endif()
]])

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vorlix)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Vorlix developers <developers@vorlix.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "desktop calculator for Earth satellites")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Predicts the passes of Earth satellites over a place, as tables, on world
maps and on sky maps, finds flares, transits and occultations, and edits,
designs and determines orbits. Reads Two Line Elements and Orbit
Mean-Elements Messages; propagates them by SGP4 and SDP4 or by numerical
integration.")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-urw-base35)  # what the font "helvetica" stands for
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS ca-certificates)  # element files by https
include(CPack)
