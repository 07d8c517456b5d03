# What Windows shows of a program's file: its version, and its icon.

if(WIN32)
  enable_language(RC)
endif()

# zlt_windows_resource(TARGET DESCRIPTION [ICON]): for other systems nothing. ICON: the panel's,
# which is made of its drawing.
function(zlt_windows_resource target description)
  if(NOT WIN32)
    return()
  endif()
  cmake_parse_arguments(RESOURCE "ICON" "" "" ${ARGN})
  set(source ${PROJECT_SOURCE_DIR}/packaging)
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  set(icon ${CMAKE_CURRENT_BINARY_DIR}/${target}.ico)
  set(icon_line "")
  if(RESOURCE_ICON)
    set(icon_line "1 ICON \"${icon}\"")
    add_custom_command(OUTPUT ${icon}
      COMMAND ${source}/windows/icon ${source}/zlt-panel.svg ${icon}
      DEPENDS ${source}/windows/icon ${source}/zlt-panel.svg)
    set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS ${icon})
  endif()
  configure_file(${source}/windows/resource.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()
