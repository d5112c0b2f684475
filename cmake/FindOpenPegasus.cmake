# Finds the OpenPegasus client and common libraries, under OpenPegasus_ROOT or
# in the system's places, and defines the target OpenPegasus::Client.

find_path(OpenPegasus_INCLUDE_DIR Pegasus/Client/CIMClient.h)
find_library(OpenPegasus_CLIENT_LIBRARY pegclient)
find_library(OpenPegasus_COMMON_LIBRARY pegcommon)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenPegasus
  REQUIRED_VARS OpenPegasus_CLIENT_LIBRARY OpenPegasus_COMMON_LIBRARY OpenPegasus_INCLUDE_DIR)
mark_as_advanced(OpenPegasus_INCLUDE_DIR OpenPegasus_CLIENT_LIBRARY OpenPegasus_COMMON_LIBRARY)

if(OpenPegasus_FOUND AND NOT TARGET OpenPegasus::Client)
  add_library(OpenPegasus::Common UNKNOWN IMPORTED)
  set_target_properties(OpenPegasus::Common PROPERTIES
    IMPORTED_LOCATION "${OpenPegasus_COMMON_LIBRARY}"
    INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${OpenPegasus_INCLUDE_DIR}"
    INTERFACE_INCLUDE_DIRECTORIES "${OpenPegasus_INCLUDE_DIR}"
    # OpenPegasus' headers learn their platform and features from the command line.
    INTERFACE_COMPILE_DEFINITIONS "PEGASUS_PLATFORM_LINUX_X86_64_GNU;PEGASUS_HAS_SSL")
  add_library(OpenPegasus::Client UNKNOWN IMPORTED)
  set_target_properties(OpenPegasus::Client PROPERTIES
    IMPORTED_LOCATION "${OpenPegasus_CLIENT_LIBRARY}"
    INTERFACE_LINK_LIBRARIES OpenPegasus::Common)
endif()
