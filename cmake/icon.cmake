# The program's icon, drawn by the build in the sizes that title bars, task bars and desktops show.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

set(PISTARO_ICON_DRAWINGS)
foreach(size 16 24 32 48 64 256)
    set(drawing ${PROJECT_BINARY_DIR}/icon-${size}.png)
    add_custom_command(OUTPUT ${drawing}
        COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${drawing} ${PROJECT_SOURCE_DIR}/packaging/pistaro.svg
        DEPENDS ${PROJECT_SOURCE_DIR}/packaging/pistaro.svg)
    list(APPEND PISTARO_ICON_DRAWINGS ${drawing})
endforeach()
