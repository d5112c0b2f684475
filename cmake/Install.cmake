# Where the parts go, and in which of two components: "runtime" is what runs, "development" what is built with.

# A library, which the CMake package of its export set offers.
function(cimhttp_install_library target export)
  install(TARGETS ${target} EXPORT ${export}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
endfunction()

# Debian's zsh also looks into vendor-completions, where what comes in its packages goes.
set(CIMHTTP_ZSH_COMPLETIONS "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" CACHE STRING "Where zsh looks for completions")

# What bash and zsh complete of a program, from a folder below the current one.
function(cimhttp_install_completion program folder)
  if(NOT WIN32)
    install(FILES "${folder}/${program}" DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT runtime)
    install(FILES "${folder}/_${program}" DESTINATION "${CIMHTTP_ZSH_COMPLETIONS}" COMPONENT runtime)
  endif()
endfunction()

# Takes away again what "cmake --install" put somewhere from this build; no other target depends on it.
add_custom_target(uninstall
  COMMAND "${CMAKE_COMMAND}" "-DBUILD=${CMAKE_BINARY_DIR}" -P "${PROJECT_SOURCE_DIR}/cmake/Uninstall.cmake"
  COMMENT "Uninstalling")
