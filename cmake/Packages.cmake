# What lets others build with what is installed: the CMake packages cimxml and cimhttp, and the same for pkg-config.
# Neither names the folder of the installation, which may be chosen, or moved, later.

include(CMakePackageConfigHelpers)

function(add_cmake_package name)
  set(folder "${CMAKE_INSTALL_LIBDIR}/cmake/${name}")
  set(built "${CMAKE_CURRENT_BINARY_DIR}/packages")
  configure_package_config_file("cmake/${name}Config.cmake.in" "${built}/${name}Config.cmake"
    INSTALL_DESTINATION "${folder}" NO_SET_AND_CHECK_MACRO)
  # Before 1.0 each minor version may change what it shows.
  write_basic_package_version_file("${built}/${name}ConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
  install(FILES "${built}/${name}Config.cmake" "${built}/${name}ConfigVersion.cmake" ${ARGN}
          DESTINATION "${folder}" COMPONENT development)
  install(EXPORT ${name}Targets NAMESPACE ${name}:: DESTINATION "${folder}" COMPONENT development)
endfunction()

function(add_pkg_config name)
  set(built "${CMAKE_CURRENT_BINARY_DIR}/packages/${name}.pc")
  file(RELATIVE_PATH PKG_CONFIG_TO_PREFIX "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
  string(REGEX REPLACE "/$" "" PKG_CONFIG_TO_PREFIX "${PKG_CONFIG_TO_PREFIX}")
  configure_file("cmake/${name}.pc.in" "${built}" @ONLY)
  install(FILES "${built}" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
endfunction()

# A compiler's flags for folders of headers that it does not look into anyway.
function(include_flags result)
  set(folders ${ARGN})
  list(REMOVE_ITEM folders ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
  list(TRANSFORM folders PREPEND " -I")
  string(JOIN "" flags ${folders})
  set(${result} "${flags}" PARENT_SCOPE)
endfunction()

if(CIMHTTP_BUNDLED_CLIENT)
  # A static library leaves it to the program to link what it needs itself.
  get_target_property(type cimxml TYPE)
  if(type STREQUAL "STATIC_LIBRARY")
    set(CIMXML_DEPENDENCIES "find_dependency(OpenSSL 3)\nfind_dependency(pugixml)\n")
    set(CIMXML_REQUIRES "openssl >= 3, pugixml")
    set(CIMXML_SYSTEM_LIBRARIES " -lws2_32 -lmswsock")
  endif()
  add_cmake_package(cimxml)
  add_pkg_config(cimxml)
  set(CIMHTTP_CLIENT_DEPENDENCY "find_dependency(cimxml ${PROJECT_VERSION} EXACT HINTS \"\${PACKAGE_PREFIX_DIR}\")")
  set(CIMHTTP_CLIENT_REQUIRES "cimxml = ${PROJECT_VERSION}")
  set(finders "")
else()
  # Its own build installs no package: what found it here finds it there, first where it was found.
  get_filename_component(pegasus "${OpenPegasus_INCLUDE_DIR}" DIRECTORY)
  string(JOIN "\n" CIMHTTP_CLIENT_DEPENDENCY
    "if(NOT OpenPegasus_ROOT)" "  set(OpenPegasus_ROOT \"${pegasus}\")" "endif()"
    "list(INSERT CMAKE_MODULE_PATH 0 \"\${CMAKE_CURRENT_LIST_DIR}\")" "find_dependency(OpenPegasus)"
    "list(POP_FRONT CMAKE_MODULE_PATH)")
  get_target_property(definitions OpenPegasus::Common INTERFACE_COMPILE_DEFINITIONS)
  include_flags(CIMHTTP_CLIENT_FLAGS "${OpenPegasus_INCLUDE_DIR}")
  foreach(definition IN LISTS definitions)
    string(APPEND CIMHTTP_CLIENT_FLAGS " -D${definition}")
  endforeach()
  get_filename_component(folder "${OpenPegasus_CLIENT_LIBRARY}" DIRECTORY)
  set(CIMHTTP_CLIENT_LIBRARIES " -L${folder} -lpegclient -lpegcommon")
  set(finders cmake/FindOpenPegasus.cmake)
endif()

get_target_property(boost_folders Boost::headers INTERFACE_INCLUDE_DIRECTORIES)
include_flags(CIMHTTP_BOOST_FLAGS ${boost_folders})
if(NOT VSK_SDK_ROOT)
  set(CIMHTTP_HOST_FLAGS " -I\${includedir}/cimhttp-host")
  set(CIMHTTP_HOST_LIBRARIES " -lvskhost")
endif()
add_cmake_package(cimhttp ${finders})
add_pkg_config(cimhttp)
