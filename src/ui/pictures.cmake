# Draws resources/*.svg as PNG, four times the size of the drawing, and names them in a resource file of
# their own, which it leaves in the variable resources.
include(${PROJECT_SOURCE_DIR}/cmake/DrawPictures.cmake)

file(GLOB drawings CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/resources/*.svg)
set(folder ${CMAKE_CURRENT_BINARY_DIR}/pictures)
file(MAKE_DIRECTORY ${folder})
foreach(drawing ${drawings})
  cmake_path(GET drawing STEM name)
  trillomat_draw(${folder}/${name}.png ${drawing} --zoom 4)
endforeach()

file(READ resources/ui.qrc list)
string(REPLACE .svg .png list "${list}")
file(CONFIGURE OUTPUT ${folder}/ui.qrc CONTENT "${list}")
set(resources ${folder}/ui.qrc)
