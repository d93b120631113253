# What a Windows program carries in itself: icon, version and manifest. And that it opens no console of its own; verbs print
# on that of whoever starts them.
find_program(ICOTOOL icotool REQUIRED)

set(PISTARO_ICON ${PROJECT_BINARY_DIR}/pistaro.ico)
add_custom_command(OUTPUT ${PISTARO_ICON}
    COMMAND ${ICOTOOL} --create --output=${PISTARO_ICON} ${PISTARO_ICON_DRAWINGS}
    DEPENDS ${PISTARO_ICON_DRAWINGS})

set(PISTARO_MANIFEST ${PROJECT_SOURCE_DIR}/packaging/windows/pistaro.manifest)
configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/pistaro.rc.in ${PROJECT_BINARY_DIR}/pistaro.rc)
set_source_files_properties(${PROJECT_BINARY_DIR}/pistaro.rc TARGET_DIRECTORY pistaro
    PROPERTIES OBJECT_DEPENDS "${PISTARO_ICON};${PISTARO_MANIFEST}")

target_sources(pistaro PRIVATE ${PROJECT_BINARY_DIR}/pistaro.rc)
set_target_properties(pistaro PROPERTIES WIN32_EXECUTABLE ON)
