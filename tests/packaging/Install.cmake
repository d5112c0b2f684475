# Installs a build and moves what was installed: nothing in it may say where it stood.
# cmake -DBUILD=folder -DFOLDER=folder -P Install.cmake

include("${CMAKE_CURRENT_LIST_DIR}/KeepManifest.cmake")
file(REMOVE_RECURSE "${FOLDER}/installed" "${FOLDER}/moved")
put_manifests_aside("${BUILD}")
install_to("${BUILD}" "${FOLDER}/installed")
put_manifests_back("${BUILD}")
file(RENAME "${FOLDER}/installed" "${FOLDER}/moved")
