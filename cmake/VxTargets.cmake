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

# Test code is compiled with little optimisation: that takes two thirds of the time, and the code
# under test is in the libraries. The undefined behaviour sanitizer checks that alone as well.
add_library(vx_test_code INTERFACE)
if(VX_SANITIZE)
  target_compile_options(vx_test_code INTERFACE -O0 -fno-sanitize=undefined)
else()
  target_compile_options(vx_test_code INTERFACE -Og)
endif()

# What every test program is compiled with.
function(vx_test_settings target)
  target_link_libraries(${target} PRIVATE
    vx_settings vxcore_testing Qt5::Test ${ARGN} vx_test_code)
  target_compile_definitions(${target} PRIVATE
    VX_SOURCE_DIR="${CMAKE_SOURCE_DIR}" VX_BINARY_DIR="${CMAKE_BINARY_DIR}"
    VX_PLUGIN_DIR="${VX_PLUGIN_OUTPUT_DIRECTORY}")
endfunction()

# A target that only owns the precompiled headers of all test programs. It is compiled as a program
# is, because compilers refuse headers made with other settings.
function(vx_precompile_tests target)
  if(VX_PRECOMPILE)
    file(CONFIGURE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/precompiled.cpp" CONTENT "")
    add_library(${target} OBJECT "${CMAKE_CURRENT_BINARY_DIR}/precompiled.cpp")
    vx_test_settings(${target} ${ARGN})
    set_target_properties(${target} PROPERTIES AUTOMOC OFF POSITION_INDEPENDENT_CODE OFF)
    target_compile_options(${target} PRIVATE -fPIE)
    vx_precompile(${target} <QtTest/QtTest>)
  endif()
endfunction()

# One test program made of several units (tst_*.cpp). Each unit is a test of CTest, run in a process
# of its own on the offscreen platform through a hard link that bears the unit's name.
function(vx_add_tests program units)
  add_executable(${program} ${units})
  vx_test_settings(${program} ${ARGN})
  vx_unity(${program})
  set(folder "${CMAKE_BINARY_DIR}/tests")
  set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${folder}")
  foreach(unit IN LISTS units)
    get_filename_component(name "${unit}" NAME_WE)
    add_custom_command(TARGET ${program} POST_BUILD
      COMMAND "${CMAKE_COMMAND}" -E rm -f "${folder}/${name}"
      COMMAND "${CMAKE_COMMAND}" -E create_hardlink $<TARGET_FILE:${program}> "${folder}/${name}")
    add_custom_target(${name} DEPENDS ${program})
    add_test(NAME ${name} COMMAND "${folder}/${name}")
    set_tests_properties(${name} PROPERTIES TIMEOUT 300
      ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_FONT_DPI=96;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1")
  endforeach()
endfunction()
