# Removes the files that the last installation from a build wrote, and folders of ours that are empty then.
# cmake -DBUILD=folder -P Uninstall.cmake; DESTDIR as it was when they were installed

# Those of single components are not asked: cpack writes them, too, and names places where it has put nothing.
set(manifest "${BUILD}/install_manifest.txt")
if(NOT EXISTS "${manifest}")
  message(FATAL_ERROR "nothing was installed from ${BUILD}: there is no install_manifest.txt")
endif()

# Folders that others use too stay, empty or not.
function(remove_empty_folders folder)
  while(folder MATCHES "/(Pegasus|cimhttp|cimhttp-host|cimxml)(/|$)" AND IS_DIRECTORY "${folder}")
    file(GLOB content "${folder}/*" "${folder}/.*")
    list(FILTER content EXCLUDE REGEX "/\\.\\.?$")
    if(content)
      return()
    endif()
    file(REMOVE_RECURSE "${folder}")
    get_filename_component(folder "${folder}" DIRECTORY)
  endwhile()
endfunction()

file(STRINGS "${manifest}" files)
foreach(file IN LISTS files)
  set(file "$ENV{DESTDIR}${file}")
  if(EXISTS "${file}" OR IS_SYMLINK "${file}")
    message(STATUS "Uninstalling: ${file}")
    file(REMOVE "${file}")
    get_filename_component(folder "${file}" DIRECTORY)
    remove_empty_folders("${folder}")
  else()
    message(STATUS "Gone already: ${file}")
  endif()
endforeach()
file(REMOVE "${manifest}")
