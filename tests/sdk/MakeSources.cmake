# Makes an SDK that is not like host/ out of it, in the folder OUTPUT: five libraries with a folder each for their
# headers, which name each other by their files alone, and other names for all enumerators.
# cmake -DHOST=host -DOUTPUT=folder -P MakeSources.cmake

# Where the files of host/'s folders go; the node information has two of them.
set(core vskcore/*)
set(memory inmem/*)
set(schema qelc/TQELCNamespace.*)
set(joined union/*)
set(nodes qelc/VQMInfo.* splib/*)

# The text of a file as this SDK has it.
function(rewrite text result)
  string(REGEX REPLACE "#include \"(vskcore|inmem|qelc|union|splib)/([^\"]*)\"" "#include \"\\2\"" text "${text}")
  string(REGEX REPLACE "([^A-Za-z0-9_])e([A-Z][A-Za-z0-9_]*)" "\\1HOST_\\2" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

function(rewrite_files part)
  list(TRANSFORM ${part} PREPEND "${HOST}/" OUTPUT_VARIABLE patterns)
  file(GLOB files ${patterns})
  if(NOT files)
    message(FATAL_ERROR "nothing in ${HOST} for ${part}")
  endif()
  foreach(file IN LISTS files)
    get_filename_component(name "${file}" NAME)
    set(place "${OUTPUT}/${part}/sources/${name}")
    if(name MATCHES "\\.h$")
      set(place "${OUTPUT}/${part}/headers/${name}")
    endif()
    file(READ "${file}" text)
    rewrite("${text}" text)
    file(CONFIGURE OUTPUT "${place}" CONTENT "${text}" @ONLY)
  endforeach()
  # A part of headers alone is a library nevertheless.
  file(CONFIGURE OUTPUT "${OUTPUT}/${part}/sources/Part.cpp" @ONLY
       CONTENT "int ${part}Part();\nint ${part}Part() {\n    return 1;\n}\n")
endfunction()

foreach(part IN ITEMS core memory schema joined nodes)
  rewrite_files(${part})
endforeach()
file(COPY_FILE "${CMAKE_CURRENT_LIST_DIR}/Sdk.cmake.in" "${OUTPUT}/CMakeLists.txt" ONLY_IF_DIFFERENT)
