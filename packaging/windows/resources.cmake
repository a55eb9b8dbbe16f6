# The icon, the version block and the manifest of the Windows program. Included beside the target
# `quillmark`.
enable_language(RC)
find_program(ICOTOOL icotool REQUIRED)

set(manifest ${CMAKE_CURRENT_BINARY_DIR}/quillmark.manifest)
configure_file(${CMAKE_CURRENT_LIST_DIR}/quillmark.manifest.in ${manifest} @ONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/quillmark.rc.in quillmark.rc @ONLY)

set(sizes 16 20 24 32 48 64 128)
set(kept ${PROJECT_SOURCE_DIR}/ui/icons/png)
list(TRANSFORM sizes REPLACE "(.+)" "${kept}/quillmark_\\1.png" OUTPUT_VARIABLE pictures)
set(largest ${kept}/quillmark_256.png)
set(icon ${CMAKE_CURRENT_BINARY_DIR}/quillmark.ico)
add_custom_command(
  OUTPUT ${icon}
  COMMAND ${ICOTOOL} --create --output=${icon} ${pictures} --raw=${largest}
  DEPENDS ${pictures} ${largest}
  VERBATIM)
set(resources ${CMAKE_CURRENT_BINARY_DIR}/quillmark.rc)
set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS "${icon};${manifest}")
target_sources(quillmark PRIVATE ${resources})
