# The program's icon, drawn by the build in the sizes that are asked for.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# pistaro_icon(size variable): the path of its PNG file, `size` pixels wide and high.
function(pistaro_icon size variable)
    set(drawing ${PROJECT_BINARY_DIR}/pistaro-${size}.png)
    set(source ${PROJECT_SOURCE_DIR}/packaging/pistaro.svg)
    add_custom_command(OUTPUT ${drawing}
        COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${drawing} ${source}
        DEPENDS ${source})
    set(${variable} ${drawing} PARENT_SCOPE)
endfunction()
