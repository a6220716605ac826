# The machine's side and the windows. Nothing above this file may need Qt.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core SerialPort Sql Gui Widgets Svg)

# moc has to look again when the list of sources changes; left alone it misses files that a glob has newly found.
function(korvex_refresh_moc target)
  get_target_property(sources ${target} SOURCES)
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${target}_sources.txt)
  set(before "")
  if(EXISTS ${list})
    file(READ ${list} before)
  endif()
  if(NOT before STREQUAL "${sources}")
    file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp)
    file(WRITE ${list} "${sources}")
  endif()
endfunction()

function(korvex_qt_target target)
  target_link_libraries(${target} PRIVATE korvex_warnings)
  target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  korvex_refresh_moc(${target})
endfunction()

# The interfaces of platform/ on Qt without any window; korvexctl needs no more.
file(GLOB found CONFIGURE_DEPENDS src/platform/qt/*.cpp)
add_library(korvex_qt STATIC ${found})
korvex_qt_target(korvex_qt)
target_link_libraries(korvex_qt PUBLIC korvex_logic Qt6::Core Qt6::SerialPort Qt6::Sql)

# Dialogs, boxes and every window.
file(GLOB found CONFIGURE_DEPENDS src/platform/qtwidgets/*.cpp src/*/ui/*.cpp)
list(FILTER found EXCLUDE REGEX "/main[A-Za-z]*\\.cpp$")
add_library(korvex_ui STATIC ${found})
korvex_qt_target(korvex_ui)
target_link_libraries(korvex_ui PUBLIC korvex_qt Qt6::Widgets PRIVATE Qt6::Svg)

include(GNUInstallDirs)

if(EXISTS ${PROJECT_SOURCE_DIR}/src/desktop/ui/main.cpp)
  qt_add_executable(korvex src/desktop/ui/main.cpp data/korvex.qrc)
  korvex_qt_target(korvex)
  set_target_properties(korvex PROPERTIES AUTORCC ON)
  target_link_libraries(korvex PRIVATE korvex_ui)
  install(TARGETS korvex)
endif()

if(EXISTS ${PROJECT_SOURCE_DIR}/src/cli/main.cpp)
  add_executable(korvexctl src/cli/main.cpp)
  korvex_qt_target(korvexctl)
  target_link_libraries(korvexctl PRIVATE korvex_qt)
  install(TARGETS korvexctl)
endif()

if(TARGET ft2000sim)
  install(TARGETS ft2000sim)
endif()
if(EXISTS ${PROJECT_SOURCE_DIR}/data/helpfile)
  install(DIRECTORY data/helpfile DESTINATION ${CMAKE_INSTALL_DATADIR}/korvex)
endif()

if(TARGET korvex)
  install(FILES packaging/korvex.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES data/images/korvex.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
