# SPDX-License-Identifier: MIT
# Where everything goes on `cmake --install`, and what a Debian package is made of.
include(GNUInstallDirs)

set(TARNWICK_ID app.tarnwick.Tarnwick)
set(TARNWICK_ZSH_DIR ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING "Where zsh looks for completions")
# The command looks for the program in this place relative to itself.
set(TARNWICK_LIBEXEC libexec/tarnwick)

if(TARGET tarnwick)
  install(TARGETS tarnwick RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
if(TARGET tarnwick-desktop)
  install(TARGETS tarnwick-desktop tarnwick-audio tarnwick-downloads
    RUNTIME DESTINATION ${TARNWICK_LIBEXEC} LIBRARY DESTINATION ${TARNWICK_LIBEXEC})
endif()

install(FILES packaging/${TARNWICK_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/${TARNWICK_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# A D-Bus service names its program by an absolute path, and the prefix is known only when it is installed.
install(CODE "
  get_filename_component(prefix \"\${CMAKE_INSTALL_PREFIX}\" ABSOLUTE)
  set(TARNWICK_DESKTOP_PATH \"\${prefix}/${TARNWICK_LIBEXEC}/tarnwick-desktop\")
  configure_file(\"${CMAKE_CURRENT_SOURCE_DIR}/packaging/${TARNWICK_ID}.service.in\"
    \"${CMAKE_CURRENT_BINARY_DIR}/${TARNWICK_ID}.service\" @ONLY)")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${TARNWICK_ID}.service DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES art/tarnwick.svg DESTINATION ${icons}/scalable/apps RENAME ${TARNWICK_ID}.svg)
install(FILES art/tarnwick-symbolic.svg DESTINATION ${icons}/symbolic/apps RENAME ${TARNWICK_ID}-symbolic.svg)
foreach(size 16 22 24 32)
  install(FILES art/tarnwick-small.svg DESTINATION ${icons}/${size}x${size}/apps RENAME ${TARNWICK_ID}.svg)
endforeach()

install(FILES packaging/completions/tarnwick.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
  RENAME tarnwick)
install(FILES packaging/completions/_tarnwick DESTINATION ${TARNWICK_ZSH_DIR})
install(FILES packaging/completions/tarnwick.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tarnwick RENAME copyright)

find_program(GZIP gzip)
function(install_compressed source destination name)
  if(GZIP)
    set(packed ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz)
    install(CODE "execute_process(COMMAND \"${GZIP}\" -9nc \"${CMAKE_CURRENT_SOURCE_DIR}/${source}\"
      OUTPUT_FILE \"${packed}\" COMMAND_ERROR_IS_FATAL ANY)")
    install(FILES ${packed} DESTINATION ${destination})
  else()
    install(FILES ${source} DESTINATION ${destination} RENAME ${name})
  endif()
endfunction()
install_compressed(packaging/tarnwick.1 ${CMAKE_INSTALL_MANDIR}/man1 tarnwick.1)
install_compressed(packaging/changelog ${CMAKE_INSTALL_DATADIR}/doc/tarnwick changelog)
if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/CHANGELOG.md)
  install_compressed(CHANGELOG.md ${CMAKE_INSTALL_DATADIR}/doc/tarnwick NEWS)
endif()

if(TARNWICK_TESTS)
  add_test(NAME packaging COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/packaging/check)
  set_tests_properties(packaging PROPERTIES LABELS rules TIMEOUT 120)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarnwick)
set(CPACK_PACKAGE_VENDOR "The Tarnwick developers")
set(CPACK_PACKAGE_CONTACT "The Tarnwick developers <maintainers@tarnwick.app>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://tarnwick.app/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "sticky notes on a board that drops from the panel")
set(CPACK_PACKAGE_DESCRIPTION
"Tarnwick keeps what there is to do on paper notes. The board drops from the
panel at a key press; notes are torn off onto the desktop, pinned to programs
and repositories, crushed into the Trash when they are done, and burnt to ash
at midnight when nobody cared.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "at-spi2-core, fonts-inter, git, libglib2.0-bin, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "pipewire-pulse | pulseaudio")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# Packing takes what is built; without this it would build tests and benchmarks first.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
include(CPack)
