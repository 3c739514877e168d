# Makes the Debian packages, checks them, installs them into an empty root, starts the installed
# program, builds the example plug-in against the -dev package and removes everything again.
#   cmake -DBUILD=... -DSOURCE=... -DWORK=... -P packages.cmake
include("${CMAKE_CURRENT_LIST_DIR}/runstep.cmake")

file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}/packages")
run("${CMAKE_CPACK_COMMAND}" --config "${BUILD}/CPackConfig.cmake" -G DEB -B "${WORK}/packages")
file(GLOB packages "${WORK}/packages/*.deb")
list(LENGTH packages count)
if(NOT count EQUAL 3)
  message(FATAL_ERROR "three packages were expected: ${packages}")
endif()

# The packages list the changes of this version.
file(STRINGS "${SOURCE}/CHANGELOG.md" first_change REGEX "^\\* " LIMIT_COUNT 1)
foreach(package IN LISTS packages)
  execute_process(COMMAND sh -c "dpkg-deb --fsys-tarfile '${package}' | tar -xO --wildcards '*/changelog.gz' | gzip -d"
                  OUTPUT_VARIABLE changes COMMAND_ERROR_IS_FATAL ANY)
  string(FIND "${changes}" "  ${first_change}" found)
  if(found EQUAL -1)
    message(FATAL_ERROR "${package} does not list the change \"${first_change}\":\n${changes}")
  endif()
endforeach()

run(lintian --allow-root --fail-on error ${packages})
file(GLOB_RECURSE catalogue "${BUILD}/app/desktop/*.metainfo.xml")
run(appstreamcli validate --no-net ${catalogue})

# An empty root with a package database of its own; the libraries of others are the machine's.
set(root "${WORK}/root")
file(MAKE_DIRECTORY "${root}/var/lib/dpkg/updates" "${root}/var/lib/dpkg/info")
file(WRITE "${root}/var/lib/dpkg/status" "")
set(dpkg dpkg --root=${root} --force-depends --force-not-root --force-script-chrootless)
run(${dpkg} --install ${packages})

file(GLOB library "${root}/usr/lib/libvxcore.so.4" "${root}/usr/lib/*/libvxcore.so.4")
get_filename_component(libraries "${library}" DIRECTORY)
set(ENV{LD_LIBRARY_PATH} "${libraries}")
run("${root}/usr/bin/vxstudio" --version)
run("${CMAKE_COMMAND}" -S "${SOURCE}/examples/notes" -B "${WORK}/build" -G Ninja
    "-DCMAKE_PREFIX_PATH=${root}/usr")
run("${CMAKE_COMMAND}" --build "${WORK}/build")
run("${root}/usr/bin/vxstudio" --headless --settings "${WORK}/settings.json"
    --plugin-path "${WORK}/build" --script "${SOURCE}/examples/notes/try.js")
if(NOT output MATCHES "first \\| Frame 3: nothing selected")
  message(FATAL_ERROR "the script printed something else:\n${output}")
endif()
unset(ENV{LD_LIBRARY_PATH})

run(${dpkg} --purge vxstudio libvxcore-dev libvxcore4)
file(GLOB_RECURSE left LIST_DIRECTORIES false "${root}/usr/*" "${root}/etc/*")
if(left)
  message(FATAL_ERROR "left behind: ${left}")
endif()
