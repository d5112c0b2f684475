# The plug-in: its sources once as a static library, for tests that look inside,
# and from that the shared library that a host loads, with nothing visible but
# the entry points, and that leaves the process when the host unloads it.

file(GLOB_RECURSE CIMHTTP_PLUGIN_SOURCES CONFIGURE_DEPENDS
  "${PROJECT_SOURCE_DIR}/provider/*.cpp" "${PROJECT_SOURCE_DIR}/connection/*.cpp"
  "${PROJECT_SOURCE_DIR}/namespace/*.cpp" "${PROJECT_SOURCE_DIR}/model/*.cpp"
  "${PROJECT_SOURCE_DIR}/convert/*.cpp")

find_package(Boost 1.81 REQUIRED)

add_library(cimhttp_core STATIC ${CIMHTTP_PLUGIN_SOURCES})
target_include_directories(cimhttp_core
  PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>" "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include/plugin>")
target_link_libraries(cimhttp_core PUBLIC VSK::SDK OpenPegasus::Client Boost::headers PRIVATE cimhttp_options)
set_target_properties(cimhttp_core PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
if(NOT WIN32)
  target_compile_options(cimhttp_core PRIVATE -fno-plt)  # most of its calls go to other libraries
endif()
target_compile_definitions(cimhttp_core PRIVATE CIMHTTP_BUILDING_PLUGIN INTERFACE CIMHTTP_STATIC)

file(WRITE "${CMAKE_BINARY_DIR}/plugin.cpp.in" "// The shared library takes every object of cimhttp_core.\n")
configure_file("${CMAKE_BINARY_DIR}/plugin.cpp.in" "${CMAKE_BINARY_DIR}/plugin.cpp" COPYONLY)
# A host's own SDK is installed by whoever made it: its folders are none of what is told to those who use the plug-in.
set(CIMHTTP_HOST_SDK VSK::SDK)
if(VSK_SDK_ROOT)
  set(CIMHTTP_HOST_SDK $<BUILD_INTERFACE:VSK::SDK>)
endif()
add_library(cimhttp SHARED "${CMAKE_BINARY_DIR}/plugin.cpp")
if(MINGW)
  target_sources(cimhttp PRIVATE "${PROJECT_SOURCE_DIR}/cmake/mingw/OnExit.cpp")
endif()
target_link_libraries(cimhttp PRIVATE "$<LINK_LIBRARY:WHOLE_ARCHIVE,cimhttp_core>"
                      PUBLIC ${CIMHTTP_HOST_SDK} OpenPegasus::Client Boost::headers)
target_compile_features(cimhttp INTERFACE cxx_std_17)
if(NOT MSVC)
  # What headers of other libraries show is the plug-in's own here, too: it would keep the library from being unloaded.
  set(exports "${PROJECT_SOURCE_DIR}/cmake/PluginExports.map")
  target_link_options(cimhttp PRIVATE "-Wl,--version-script=${exports}")
  set_property(TARGET cimhttp APPEND PROPERTY LINK_DEPENDS "${exports}")
endif()
target_include_directories(cimhttp PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include/plugin>"
                           "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")

cimhttp_describe_library(cimhttp "CIM-XML namespace provider")

cimhttp_install_library(cimhttp cimhttpTargets)
install(DIRECTORY include/plugin/cimhttp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
        FILES_MATCHING PATTERN "*.h")
