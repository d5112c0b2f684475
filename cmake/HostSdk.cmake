# The host's SDK behind the target VSK::SDK: a real one under VSK_SDK_ROOT, or
# the substitutes in host/.

set(VSK_SDK_ROOT "" CACHE PATH "Root of an installed host SDK (include/, lib/); empty: build host/")

if(VSK_SDK_ROOT)
  find_package(Boost 1.81 REQUIRED)
  find_path(VSK_SDK_INCLUDE_DIR vskcore/TCIMValue.h PATHS "${VSK_SDK_ROOT}/include" PATH_SUFFIXES cimhttp-host
            NO_DEFAULT_PATH REQUIRED)
  find_library(VSK_SDK_LIBRARY vskhost PATHS "${VSK_SDK_ROOT}/lib" NO_DEFAULT_PATH REQUIRED)
  add_library(VSK::SDK UNKNOWN IMPORTED)
  set_target_properties(VSK::SDK PROPERTIES
    IMPORTED_LOCATION "${VSK_SDK_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${VSK_SDK_INCLUDE_DIR}"
    INTERFACE_LINK_LIBRARIES Boost::headers)
else()
  add_subdirectory(host)
endif()
