# Builds the module VxKeyTools against an installed vxcore, as a stranger would, and lets the installed
# program load it and run its tools from a script.
#   cmake -DBUILD=... -DSOURCE=... -DWORK=... -P keytoolsmodule.cmake
include("${CMAKE_CURRENT_LIST_DIR}/runstep.cmake")

file(REMOVE_RECURSE "${WORK}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix")
# The module of the build itself would be the same plug-in a second time.
file(GLOB_RECURSE installed "${WORK}/prefix/*/VxKeyTools.so")
file(REMOVE ${installed})
run("${CMAKE_COMMAND}" -S "${SOURCE}/pluginsource/VxKeyTools" -B "${WORK}/build" -G Ninja
    "-DCMAKE_PREFIX_PATH=${WORK}/prefix" -DCMAKE_UNITY_BUILD=ON)
run("${CMAKE_COMMAND}" --build "${WORK}/build")
run("${WORK}/prefix/bin/vxstudio" --headless --settings "${WORK}/settings.json"
    --plugin-path "${WORK}/build" --script "${SOURCE}/pluginsource/VxKeyTools/try.js")
if(NOT output MATCHES "true 0,960,1920 Move Keys")
  message(FATAL_ERROR "the script printed something else:\n${output}")
endif()
