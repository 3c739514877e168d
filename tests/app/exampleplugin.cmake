# Installs the libraries into an empty folder, builds the example plug-in against them as a
# stranger would, and lets the installed program load it and run a script.
#   cmake -DBUILD=... -DSOURCE=... -DWORK=... -P exampleplugin.cmake
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
                  ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN} failed (${result}):\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${WORK}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix")
run("${CMAKE_COMMAND}" -S "${SOURCE}/examples/notes" -B "${WORK}/build" -G Ninja
    "-DCMAKE_PREFIX_PATH=${WORK}/prefix")
run("${CMAKE_COMMAND}" --build "${WORK}/build")
run("${WORK}/prefix/bin/vxstudio" --headless --settings "${WORK}/settings.ini"
    --plugin-path "${WORK}/build" --script "${SOURCE}/examples/notes/try.js")
if(NOT output MATCHES "first \\| Frame 3: nothing selected")
  message(FATAL_ERROR "the script printed something else:\n${output}")
endif()
