# Draws resources/*.svg as PNG, four times the size of the drawing, and names them in a resource file of
# their own, which it leaves in the variable resources.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

file(GLOB drawings CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/resources/*.svg)
set(folder ${CMAKE_CURRENT_BINARY_DIR}/pictures)
file(MAKE_DIRECTORY ${folder})
foreach(drawing ${drawings})
  cmake_path(GET drawing STEM name)
  add_custom_command(OUTPUT ${folder}/${name}.png
    COMMAND ${RSVG_CONVERT} --zoom 4 --output ${folder}/${name}.png ${drawing}
    DEPENDS ${drawing} VERBATIM)
endforeach()

file(READ resources/ui.qrc list)
string(REPLACE .svg .png list "${list}")
file(CONFIGURE OUTPUT ${folder}/ui.qrc CONTENT "${list}")
set(resources ${folder}/ui.qrc)
