# Makes and installs the other SDK, builds the plug-in with it, and a host of that SDK. What is up to date stays.
# cmake -DROOT=project -DFOLDER=folder -DARGUMENTS=... -DPLUGIN_ARGUMENTS=... -P BuildWithSdk.cmake

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(sdk "${FOLDER}/sdk")
run("${CMAKE_COMMAND}" "-DHOST=${ROOT}/host" "-DOUTPUT=${sdk}/sources" -P "${CMAKE_CURRENT_LIST_DIR}/MakeSources.cmake")
run("${CMAKE_COMMAND}" -S "${sdk}/sources" -B "${sdk}/build" ${ARGUMENTS})
run("${CMAKE_COMMAND}" --build "${sdk}/build")
# What was installed by a test before must not do for one of its files that is gone.
file(REMOVE_RECURSE "${sdk}/installed")
run("${CMAKE_COMMAND}" --install "${sdk}/build" --prefix "${sdk}/installed")
run("${CMAKE_COMMAND}" -S "${ROOT}" -B "${FOLDER}/plugin" ${ARGUMENTS} ${PLUGIN_ARGUMENTS}
    "-DVSK_SDK_ROOT=${sdk}/installed" "-DVSK_SDK_LIBRARIES=host_core\\;host_memory\\;host_schema\\;host_joined\\;host_nodes"
    -DCIMHTTP_BUILD_TESTS=OFF -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=12
    "-DCMAKE_PROJECT_cimhttp_INCLUDE=${CMAKE_CURRENT_LIST_DIR}/AddHost.cmake"
    "-DCIMHTTP_FOREIGN_HOST=${CMAKE_CURRENT_LIST_DIR}/ForeignHost.cpp")
run("${CMAKE_COMMAND}" --build "${FOLDER}/plugin" --target foreign_host)
# A program finds a library beside it everywhere.
file(GLOB libraries "${sdk}/installed/*/bin/*.dll")
if(libraries)
  file(COPY ${libraries} DESTINATION "${FOLDER}/plugin")
endif()
