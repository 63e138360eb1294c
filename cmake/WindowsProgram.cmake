# dalvora_windows_program(target DESCRIPTION text [CONSOLE])
# On Windows: the program's version resource, icon and manifest, and a console only for those that write to one.
# Nothing elsewhere.

set(program_resources ${PROJECT_SOURCE_DIR}/packaging/windows/program)

if(WIN32)
  # One icon of every size that the shell shows.
  set(program_icon ${PROJECT_BINARY_DIR}/packaging/dalvora.ico)
  set(icon_drawing ${PROJECT_SOURCE_DIR}/platform/skin/window/dalvora.svg)
  add_custom_command(OUTPUT ${program_icon}
    COMMAND ${program_resources}/make-icon ${icon_drawing} ${program_icon}
    DEPENDS ${program_resources}/make-icon ${icon_drawing}
    COMMENT "Drawing the program's icon"
    VERBATIM)
  add_custom_target(dalvora_program_icon DEPENDS ${program_icon})
  enable_language(RC)
  # The texts of the resources are UTF-8.
  set(CMAKE_RC_FLAGS "${CMAKE_RC_FLAGS} -c 65001")
endif()

function(dalvora_windows_program target)
  if(NOT WIN32)
    return()
  endif()
  cmake_parse_arguments(PROGRAM "CONSOLE" "DESCRIPTION" "" ${ARGN})
  set(folder ${PROJECT_BINARY_DIR}/packaging/${target})
  get_target_property(PROGRAM_NAME ${target} OUTPUT_NAME)
  if(NOT PROGRAM_NAME)
    set(PROGRAM_NAME ${target})
  endif()
  get_target_property(suffix ${target} SUFFIX)
  if(NOT suffix)
    set(suffix .exe)
  endif()
  set(PROGRAM_FILE ${PROGRAM_NAME}${suffix})
  configure_file(${program_resources}/program.rc.in ${folder}/program.rc @ONLY)
  configure_file(${program_resources}/program.manifest.in ${folder}/program.manifest @ONLY)
  set_source_files_properties(${folder}/program.rc PROPERTIES
    OBJECT_DEPENDS "${program_icon};${folder}/program.manifest")
  target_sources(${target} PRIVATE ${folder}/program.rc)
  add_dependencies(${target} dalvora_program_icon)
  if(NOT PROGRAM_CONSOLE)
    set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
  endif()
endfunction()
