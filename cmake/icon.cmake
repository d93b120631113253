# The program's icon, drawn by the build in the sizes that title bars, task bars and desktops show, and the icons on its
# buttons, in those that screens of 100 to 300 % need.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# pistaro_drawings(out name svg size...): an SVG file drawn as name-SIZE.png into the build's folder, whose paths are added
# to the list `out`.
function(pistaro_drawings out name svg)
    set(drawings ${${out}})
    foreach(size IN LISTS ARGN)
        set(drawing ${PROJECT_BINARY_DIR}/${name}-${size}.png)
        add_custom_command(OUTPUT ${drawing}
            COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${drawing} ${svg}
            DEPENDS ${svg})
        list(APPEND drawings ${drawing})
    endforeach()
    set(${out} ${drawings} PARENT_SCOPE)
endfunction()

set(PISTARO_ICON_DRAWINGS)
pistaro_drawings(PISTARO_ICON_DRAWINGS icon ${PROJECT_SOURCE_DIR}/packaging/pistaro.svg 16 24 32 48 64 256)

set(PISTARO_BUTTON_DRAWINGS)
file(GLOB button_icons CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/ui/icons/*.svg)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/buttons)
foreach(svg IN LISTS button_icons)
    cmake_path(GET svg STEM name)
    pistaro_drawings(PISTARO_BUTTON_DRAWINGS buttons/${name} ${svg} 20 25 30 40 50 60)
endforeach()
