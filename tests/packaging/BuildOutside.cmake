# Builds the programs of outside/ with what is installed below MOVED: as FOLDER/cmake with its CMake packages, and, where
# that is used, as FOLDER/pkg-config with pkg-config's files.
# cmake -DSOURCES=outside -DFOLDER=folder -DMOVED=prefix -DLIBDIR=lib -DEXAMPLE_HOST=source -DVERSION=... -DCOMPILER=...
#   -DARGUMENTS=... -DCLIENT=ON -DPKG_CONFIG=1 -P BuildOutside.cmake

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# What a test before has built must not do for what cannot be built any more.
file(REMOVE_RECURSE "${FOLDER}")
run("${CMAKE_COMMAND}" -S "${SOURCES}" -B "${FOLDER}/cmake" ${ARGUMENTS} "-DINSTALLED=${MOVED}" "-DEXAMPLE_HOST=${EXAMPLE_HOST}"
    "-DCLIENT=${CLIENT}")
run("${CMAKE_COMMAND}" --build "${FOLDER}/cmake")
# A program of Windows finds a library beside it.
file(GLOB libraries "${MOVED}/bin/*.dll")
if(libraries)
  file(COPY ${libraries} DESTINATION "${FOLDER}/cmake")
endif()
if(NOT PKG_CONFIG)
  return()
endif()

set(ENV{PKG_CONFIG_PATH} "${MOVED}/${LIBDIR}/pkgconfig")
function(build_with_pkg_config package source program)
  execute_process(COMMAND pkg-config --modversion ${package} OUTPUT_VARIABLE version OUTPUT_STRIP_TRAILING_WHITESPACE
                  COMMAND_ERROR_IS_FATAL ANY)
  if(NOT version STREQUAL VERSION)
    message(FATAL_ERROR "pkg-config knows ${package} ${version} instead of ${VERSION}")
  endif()
  execute_process(COMMAND pkg-config --cflags --libs ${package} OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE
                  COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  run(${COMPILER} -std=c++17 "${source}" -o "${FOLDER}/pkg-config/outside_${program}" ${flags})
endfunction()

file(MAKE_DIRECTORY "${FOLDER}/pkg-config")
if(CLIENT)
  build_with_pkg_config(cimxml "${SOURCES}/client/Client.cpp" client)
endif()
build_with_pkg_config(cimhttp "${EXAMPLE_HOST}" host)
