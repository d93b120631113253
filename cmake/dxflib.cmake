# The DXF library, which brings no CMake package.
find_path(DXFLIB_INCLUDE_DIR dxflib/dl_dxf.h REQUIRED)
find_library(DXFLIB_LIBRARY dxflib REQUIRED)
add_library(dxflib::dxflib UNKNOWN IMPORTED)
set_target_properties(dxflib::dxflib PROPERTIES IMPORTED_LOCATION ${DXFLIB_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${DXFLIB_INCLUDE_DIR})
