# The machine's side and the windows. Nothing above this file may need Qt.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Network SerialPort Sql Gui Widgets Svg)

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
target_link_libraries(korvex_qt PUBLIC korvex_logic Qt6::Core Qt6::SerialPort Qt6::Sql PRIVATE Qt6::Network)

# The picture of the start window and the program's icon, drawn at build time: drawing them at every start costs more than
# everything else that the start window does. Other sizes are drawn from the SVG when they are needed.
add_executable(draw_art tools/draw_art.cpp)
korvex_qt_target(draw_art)
target_link_libraries(draw_art PRIVATE Qt6::Gui Qt6::Svg)
set(drawn_folder ${PROJECT_BINARY_DIR}/drawn)
file(MAKE_DIRECTORY ${drawn_folder})
set(icon_sizes 16x16 22x22 24x24 32x32 48x48 64x64 128x128 256x256 512x512)
list(TRANSFORM icon_sizes PREPEND korvex: OUTPUT_VARIABLE icon_orders)
set(art_orders)
set(drawn_files)
foreach(order ft2000-front:360x150 ft2000-front:720x300 ${icon_orders})
  string(REPLACE ":" ";" parts ${order})
  list(GET parts 0 name)
  list(GET parts 1 size)
  list(APPEND art_orders ${PROJECT_SOURCE_DIR}/data/images/${name}.svg:${size})
  list(APPEND drawn_files ${drawn_folder}/${name}@${size}.png)
endforeach()
# What a program carries in itself; the other sizes are the desktop's.
set(art_files ${drawn_files})
list(FILTER art_files INCLUDE REGEX "/(ft2000-front|korvex@(16|32|64)x)[^/]*$")
add_custom_command(OUTPUT ${drawn_files}
  COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
          $<TARGET_FILE:draw_art> ${drawn_folder} ${art_orders}
  DEPENDS draw_art data/images/ft2000-front.svg data/images/korvex.svg
  COMMENT "Drawing the pictures")
add_custom_target(korvex_art DEPENDS ${drawn_files})

# What a program with windows carries in itself.
function(korvex_resources target)
  target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/data/korvex.qrc)
  set_target_properties(${target} PROPERTIES AUTORCC ON)
  qt_add_resources(${target} ${target}_drawn PREFIX /drawn BASE ${drawn_folder} FILES ${art_files})
  add_dependencies(${target} korvex_art)
endfunction()

# Dialogs, boxes and every window.
file(GLOB found CONFIGURE_DEPENDS src/platform/qtwidgets/*.cpp src/*/ui/*.cpp)
list(FILTER found EXCLUDE REGEX "/main[A-Za-z]*\\.cpp$")
add_library(korvex_ui STATIC ${found})
korvex_qt_target(korvex_ui)
target_link_libraries(korvex_ui PUBLIC korvex_qt Qt6::Widgets PRIVATE Qt6::Svg)

# The menu descriptions that come with the program. Korvex copies them into its program folder where there are none.
add_executable(make_descriptions tools/make_descriptions.cpp)
korvex_qt_target(make_descriptions)
target_link_libraries(make_descriptions PRIVATE korvex_qt)
set(descriptions ${PROJECT_BINARY_DIR}/data/FT2000_Menu.mdb)
add_custom_command(OUTPUT ${descriptions}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/data
  COMMAND ${CMAKE_COMMAND} -E rm -f ${descriptions}
  COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
    $<TARGET_FILE:make_descriptions> ${descriptions} ${PROJECT_SOURCE_DIR}/data/menu-description.tsv
  DEPENDS make_descriptions data/menu-description.tsv
  COMMENT "Making the menu descriptions" VERBATIM)
add_custom_target(korvex_descriptions DEPENDS ${descriptions})

# Whoever builds a program gets the descriptions along, whichever target he named.
qt_add_executable(korvex src/desktop/ui/main.cpp)
korvex_qt_target(korvex)
korvex_resources(korvex)
target_link_libraries(korvex PRIVATE korvex_ui)
add_dependencies(korvex korvex_descriptions)

add_executable(korvexctl src/cli/main.cpp)
korvex_qt_target(korvexctl)
target_link_libraries(korvexctl PRIVATE korvex_qt)
add_dependencies(korvexctl korvex_descriptions)
include(cmake/Install.cmake)
