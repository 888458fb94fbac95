# Pictures that are drawn once as SVG and needed as PNG, too.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# trillomat_draw(OUTPUT DRAWING OPTIONS...): makes the PNG file OUTPUT of the SVG file DRAWING; the options of
# rsvg-convert tell its size.
function(trillomat_draw output drawing)
  add_custom_command(OUTPUT ${output}
    COMMAND ${RSVG_CONVERT} ${ARGN} --output ${output} ${drawing}
    DEPENDS ${drawing} VERBATIM)
endfunction()
