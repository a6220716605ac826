# What an installation has besides the programs: what desktops, shells and man look for.
include(GNUInstallDirs)
set(KORVEX_REPOSITORY "https://c-seed-9ba08491.example/korvex" CACHE STRING
  "Where the public finds the sources: software centers link it and show the pictures in it")
set(KORVEX_ZSH_FOLDER share/zsh/site-functions CACHE STRING "Where zsh looks for completions")
set(KORVEX_FISH_FOLDER share/fish/vendor_completions.d CACHE STRING "Where fish looks for completions")

install(TARGETS korvex korvexctl ft2000sim)
install(FILES ${descriptions} DESTINATION ${CMAKE_INSTALL_DATADIR}/korvex)
install(DIRECTORY data/helpfile DESTINATION ${CMAKE_INSTALL_DATADIR}/korvex)

install(FILES packaging/korvex.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/korvex-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME korvex.xml)
configure_file(packaging/korvex.metainfo.xml.in org.korvex.korvex.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/org.korvex.korvex.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# The icon in the sizes that desktops ask for; others are drawn from the SVG.
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES data/images/korvex.svg DESTINATION ${icons}/scalable/apps)
foreach(size ${icon_sizes})
  install(FILES ${drawn_folder}/korvex@${size}.png DESTINATION ${icons}/${size}/apps RENAME korvex.png)
endforeach()

# Manual pages and completions are what the programs say of themselves.
set(pages_folder ${PROJECT_BINARY_DIR}/pages)
file(MAKE_DIRECTORY ${pages_folder})
set(pages)
function(korvex_page program name destination arguments)
  string(REPLACE "/" "_" file ${destination}_${name})
  add_custom_command(OUTPUT ${pages_folder}/${file}
    COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
            $<TARGET_FILE:${program}> ${arguments} > ${pages_folder}/${file}
    DEPENDS ${program} COMMENT "Letting ${program} write ${name}" VERBATIM)
  install(FILES ${pages_folder}/${file} DESTINATION ${destination} RENAME ${name})
  list(APPEND pages ${pages_folder}/${file})
  set(pages ${pages} PARENT_SCOPE)
endfunction()
foreach(program korvex korvexctl ft2000sim)
  korvex_page(${program} ${program}.1 ${CMAKE_INSTALL_MANDIR}/man1 --manual)
  korvex_page(${program} ${program} ${CMAKE_INSTALL_DATADIR}/bash-completion/completions --completion=bash)
  korvex_page(${program} _${program} ${KORVEX_ZSH_FOLDER} --completion=zsh)
  korvex_page(${program} ${program}.fish ${KORVEX_FISH_FOLDER} --completion=fish)
endforeach()
add_custom_target(korvex_pages ALL DEPENDS ${pages})
