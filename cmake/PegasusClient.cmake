# The CIM client library behind the target OpenPegasus::Client: an installed
# OpenPegasus, or the bundled library with the same API in cimxml/.

set(CIMHTTP_OPENPEGASUS auto CACHE STRING "Which CIM client library to use: auto, system or bundled")
set_property(CACHE CIMHTTP_OPENPEGASUS PROPERTY STRINGS auto system bundled)

if(CIMHTTP_OPENPEGASUS STREQUAL "system")
  find_package(OpenPegasus REQUIRED)
elseif(CIMHTTP_OPENPEGASUS STREQUAL "auto")
  find_package(OpenPegasus QUIET)
elseif(NOT CIMHTTP_OPENPEGASUS STREQUAL "bundled")
  message(FATAL_ERROR "CIMHTTP_OPENPEGASUS is '${CIMHTTP_OPENPEGASUS}'; it must be auto, system or bundled")
endif()

if(TARGET OpenPegasus::Client)
  set(CIMHTTP_BUNDLED_CLIENT OFF)
  message(STATUS "CIM client library: OpenPegasus in ${OpenPegasus_INCLUDE_DIR}")
else()
  set(CIMHTTP_BUNDLED_CLIENT ON)
  message(STATUS "CIM client library: bundled (cimxml/)")
  add_subdirectory(cimxml)
endif()
