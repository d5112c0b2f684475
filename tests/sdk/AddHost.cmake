# Included by the plug-in's project when it is built with another SDK: adds a host of that SDK.

function(add_foreign_host)
  add_executable(foreign_host "${CIMHTTP_FOREIGN_HOST}")
  target_link_libraries(foreign_host PRIVATE cimhttp VSK::SDK)
endfunction()

cmake_language(DEFER CALL add_foreign_host)
