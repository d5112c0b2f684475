# What a file of ours tells Windows about itself; nothing elsewhere.

if(WIN32)
  enable_language(RC)
endif()

function(add_version_resource target name type description more)
  set(RESOURCE_NAME "${name}")
  set(RESOURCE_TYPE "${type}")
  set(RESOURCE_DESCRIPTION "${description}")
  set(RESOURCE_MORE "${more}")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/Version.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc" @ONLY)
  target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
endfunction()

# A library's name is the same here as a host's other plug-ins': without "lib" in front.
function(cimhttp_describe_library target description)
  if(WIN32)
    set_target_properties(${target} PROPERTIES PREFIX "")
    add_version_resource(${target} "${target}.dll" VFT_DLL "${description}" "")
  endif()
endfunction()

# A program's words, its variables and the names of its files are UTF-8.
function(cimhttp_describe_program target description)
  if(WIN32)
    get_target_property(name ${target} OUTPUT_NAME)
    if(NOT name)
      set(name ${target})
    endif()
    set(manifest "${PROJECT_SOURCE_DIR}/cmake/Utf8.manifest")
    if(MSVC)
      # Its linker makes a manifest, too: this one becomes part of that.
      target_sources(${target} PRIVATE "${manifest}")
      set(manifest_resource "")
    else()
      set(manifest_resource "1 24 \"${manifest}\"")
    endif()
    add_version_resource(${target} "${name}.exe" VFT_APP "${description}" "${manifest_resource}")
  endif()
endfunction()
