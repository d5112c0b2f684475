# Two Debian packages, from the two components: cimhttp, what runs, and cimhttp-dev, what is built with. Made by cpack in the
# preset "package", whose folders are those of the system; scripts/package does it all.

find_program(GZIP gzip REQUIRED)
set(CIMHTTP_DEBIAN_VERSION "${PROJECT_VERSION}-1")
string(TIMESTAMP CIMHTTP_DEBIAN_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
# As Debian's own tools name whoever makes a package.
set(CIMHTTP_PACKAGER "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
if(NOT DEFINED ENV{DEBFULLNAME} OR NOT DEFINED ENV{DEBEMAIL})
  set(CIMHTTP_PACKAGER "cimhttp developers <cimhttp@packages.invalid>")
endif()

set(folder "${CMAKE_CURRENT_BINARY_DIR}/debian")
configure_file(cmake/debian/changelog.in "${folder}/changelog" @ONLY)
execute_process(COMMAND "${GZIP}" -9nc "${folder}/changelog" OUTPUT_FILE "${folder}/changelog.Debian.gz" COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${GZIP}" -9nc "${PROJECT_SOURCE_DIR}/CHANGELOG.md" OUTPUT_FILE "${folder}/changelog.gz" COMMAND_ERROR_IS_FATAL ANY)

# Code of these is part of the programs and libraries, and wants to be named there; Debian has with each the terms that it
# comes under.
configure_file(cmake/debian/copyright.in "${folder}/copyright" @ONLY)
foreach(package libpugixml-dev libcli11-dev nlohmann-json3-dev)
  file(READ "/usr/share/doc/${package}/copyright" terms)
  file(APPEND "${folder}/copyright" "\n\nParts of ${package}, whose terms follow.\n\n${terms}")
endforeach()

function(install_documents component package)
  install(FILES "${folder}/copyright" "${folder}/changelog.Debian.gz" "${folder}/changelog.gz"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
endfunction()
install_documents(runtime cimhttp)
install_documents(development cimhttp-dev)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME cimhttp)
set(CPACK_PACKAGE_CONTACT "${CIMHTTP_PACKAGER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each has its own
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME cimhttp)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION net)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# Libraries of the package itself.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_BINARY_DIR}")
# What CPack makes of its own lacks the trigger, and it takes the plug-in for a library that forgot its version.
configure_file(cmake/debian/shlibs.in "${folder}/shlibs" @ONLY)
configure_file(cmake/debian/triggers "${folder}/triggers" COPYONLY)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${folder}/shlibs;${folder}/triggers")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "CIM servers for a server-diagnostics host
The plug-in libcimhttp.so, through which a server-diagnostics host sees the
CIM servers of a machine's management controllers, over CIM-XML (DSP0200).
.
With it come cimhttp, a command-line host that shows what the plug-in delivers,
cimom, a CIM server of a sample machine, and the client library libcimxml.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME cimhttp-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "cimhttp (= ${CIMHTTP_DEBIAN_VERSION}), libboost1.81-dev | libboost-dev (>= 1.81)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "CIM servers for a server-diagnostics host, development files
What a host is built with that links the plug-in cimhttp, and a program with
the CIM-XML client library cimxml: headers, CMake packages and files for
pkg-config.")
include(CPack)
