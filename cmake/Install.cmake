# Where the parts go, and in which of two components: "runtime" is what runs, "development" what is built with.

# A library, which the CMake package of its export set offers.
function(cimhttp_install_library target export)
  install(TARGETS ${target} EXPORT ${export}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
endfunction()

# Takes away again what "cmake --install" put somewhere from this build; no other target depends on it.
add_custom_target(uninstall
  COMMAND "${CMAKE_COMMAND}" "-DBUILD=${CMAKE_BINARY_DIR}" -P "${PROJECT_SOURCE_DIR}/cmake/Uninstall.cmake"
  COMMENT "Uninstalling")
