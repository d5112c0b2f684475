# Manual pages, from docs/man. Windows has no place for them.

if(NOT WIN32)
  find_program(SCDOC scdoc DOC "Makes manual pages")
  find_program(GZIP gzip DOC "Compresses manual pages")
  if(NOT SCDOC OR NOT GZIP)
    message(STATUS "Manual pages: none, scdoc or gzip is missing")
  endif()
endif()
add_custom_target(manual ALL)

function(cimhttp_add_manual_page program)
  if(WIN32 OR NOT SCDOC OR NOT GZIP)
    return()
  endif()
  set(source "${CMAKE_CURRENT_BINARY_DIR}/${program}.1.scd")
  set(page "${CMAKE_CURRENT_BINARY_DIR}/${program}.1.gz")
  configure_file("${PROJECT_SOURCE_DIR}/docs/man/${program}.1.scd" "${source}" @ONLY)
  add_custom_command(OUTPUT "${page}" DEPENDS "${source}" COMMENT "Making the manual page of ${program}" VERBATIM
    COMMAND sh -c "\"$1\" < \"$3\" > \"$4.plain\" && \"$2\" -9nc \"$4.plain\" > \"$4\"" sh
            "${SCDOC}" "${GZIP}" "${source}" "${page}")
  add_custom_target(manual_of_${program} DEPENDS "${page}")
  add_dependencies(manual manual_of_${program})
  install(FILES "${page}" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime)
endfunction()
