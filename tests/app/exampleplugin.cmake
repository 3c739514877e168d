# Installs the libraries into an empty folder, builds the example plug-in against them as a
# stranger would, and lets the installed program load it and run a script.
#   cmake -DBUILD=... -DSOURCE=... -DWORK=... -P exampleplugin.cmake
include("${CMAKE_CURRENT_LIST_DIR}/runstep.cmake")

file(REMOVE_RECURSE "${WORK}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix")
run("${CMAKE_COMMAND}" -E env "VX_INSTALLED_DIR=${WORK}/prefix"
    "${BUILD}/tests/tst_binaries" searchPathsAreExact:installed)
run("${CMAKE_COMMAND}" -S "${SOURCE}/examples/notes" -B "${WORK}/build" -G Ninja
    "-DCMAKE_PREFIX_PATH=${WORK}/prefix")
run("${CMAKE_COMMAND}" --build "${WORK}/build")
run("${WORK}/prefix/bin/vxstudio" --headless --settings "${WORK}/settings.json"
    --plugin-path "${WORK}/build" --script "${SOURCE}/examples/notes/try.js")
if(NOT output MATCHES "first \\| Frame 3: nothing selected")
  message(FATAL_ERROR "the script printed something else:\n${output}")
endif()
