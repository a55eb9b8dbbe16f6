# What clang-tidy looks at together. It walks all that a file includes, which takes longer than the file
# itself: where many include the same, they are put into one. In an unnamed namespace their names have
# to differ then. Targets that no group names are looked at by themselves.

# What their own folders have found.
find_package(nlohmann_json 3.11 REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Test Widgets)
find_package(GTest REQUIRED)

function(quillmark_lint_together group)
  add_library(${group} OBJECT EXCLUDE_FROM_ALL)
  foreach(target ${ARGN})
    get_target_property(folder ${target} SOURCE_DIR)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp")
    list(TRANSFORM sources REPLACE "[a-z_./]+\\.cpp" "${folder}/\\0")
    target_sources(${group} PRIVATE ${sources})
    get_directory_property(definitions DIRECTORY ${folder} COMPILE_DEFINITIONS)
    target_compile_definitions(${group} PRIVATE ${definitions})
    foreach(property LINK_LIBRARIES COMPILE_DEFINITIONS INCLUDE_DIRECTORIES)
      get_target_property(values ${target} ${property})
      if(values)
        set_property(TARGET ${group} APPEND PROPERTY ${property} ${values})
      endif()
    endforeach()
  endforeach()
  # Each of the programs has its own main routine.
  set_target_properties(${group} PROPERTIES UNITY_BUILD_UNIQUE_ID main)
  set_target_properties(${ARGN} PROPERTIES EXPORT_COMPILE_COMMANDS OFF)
endfunction()

quillmark_lint_together(
  lint_floors
  quillmark_platform
  quillmark_core
  quillmark_controls
  quillmark_forms
  quillmark_language_files
  quillmark_string_editors
  quillmark_editor
  quillmark_frame)
quillmark_lint_together(lint_tools quillmark_json_text quillmark_script_tool quillmark-script
                        quillmark_test_text quillmark_scenario_parts)
quillmark_lint_together(
  lint_windows
  quillmark_ui
  quillmark
  quillmark_driver_parts
  quillmark_driver
  random_walks
  ui_tests)
