# Collects the sources below the given folders of the current list file's folder. New files are
# picked up by the next build, so that adding a class touches no list.
function(vx_collect_sources out)
  set(patterns)
  foreach(folder IN LISTS ARGN)
    list(APPEND patterns "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp"
                         "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.h"
                         "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.qrc")
  endforeach()
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${patterns})
  set(${out} ${sources} PARENT_SCOPE)
endfunction()

# One test program for one unit, named after its file, run by CTest on the offscreen platform.
function(vx_add_test source)
  get_filename_component(name "${source}" NAME_WE)
  add_executable(${name} "${source}")
  target_link_libraries(${name} PRIVATE vx_settings vxcore_testing Qt5::Test ${ARGN})
  target_compile_definitions(${name} PRIVATE
    VX_SOURCE_DIR="${CMAKE_SOURCE_DIR}" VX_BINARY_DIR="${CMAKE_BINARY_DIR}"
    VX_PLUGIN_DIR="${VX_PLUGIN_OUTPUT_DIRECTORY}")
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_FONT_DPI=96;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()

# A test whose program needs an environment or a helper program of its own still goes through
# vx_add_test; this adds what it must wait for at build time.
function(vx_test_needs name)
  add_dependencies(${name} ${ARGN})
endfunction()
