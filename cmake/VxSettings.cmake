# Settings that every target of the tree shares.
option(VX_BUILD_TESTS "Build the test programs" ON)
option(VX_BUILD_BENCHMARKS "Build the benchmarks" ON)
option(VX_BUILD_FUZZERS "Build the fuzzing programs (needs clang)" OFF)
option(VX_WERROR "Treat warnings as errors" ON)
set(VX_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)

# The program, the libraries and the plug-in folder lie beside each other in the build tree as
# they do when installed, so both are started the same way.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(VX_PLUGIN_OUTPUT_DIRECTORY "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/vxstudio/plugins")
set(VX_PLUGIN_INSTALL_DIR "${CMAKE_INSTALL_LIBDIR}/vxstudio/plugins")
# Built and installed binaries have the same paths: those that are rewritten on installation are
# padded with empty entries, which the loader reads as the current folder.
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

find_program(VX_CCACHE ccache)
if(VX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers are cached as well when their time stamps are left aside.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime "${VX_CCACHE}")
endif()

add_library(vx_settings INTERFACE)
target_compile_definitions(vx_settings INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_DEPRECATED_WARNINGS)
target_compile_options(vx_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
  $<$<BOOL:${VX_WERROR}>:-Werror>
  # Warnings name a source file from its last "\src\" on: give every file that root, whatever
  # folder the tree was cloned into.
  -fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=/src/)
# Hardening: checked library calls, stack and control-flow protection, position-independent programs
# and tables that are read-only after loading. The sanitizers have checks of their own.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
target_link_options(vx_settings INTERFACE -Wl,-z,relro -Wl,-z,now)
if(NOT VX_SANITIZE)
  target_compile_options(vx_settings INTERFACE -fstack-protector-strong -fstack-clash-protection
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>)
  include(CheckCXXCompilerFlag)
  check_cxx_compiler_flag(-fcf-protection VX_HAS_CF_PROTECTION)
  if(VX_HAS_CF_PROTECTION)
    target_compile_options(vx_settings INTERFACE -fcf-protection)
  endif()
endif()
if(VX_SANITIZE)
  # Checks of null pointers and alignment take a third of the time to compile. A null pointer that is
  # used ends the program in any case, and this processor reads unaligned memory.
  target_compile_options(vx_settings INTERFACE -fsanitize=${VX_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=undefined -fno-sanitize=null,alignment)
  target_link_options(vx_settings INTERFACE -fsanitize=${VX_SANITIZE})
endif()

# The toolkit's headers are parsed once per target instead of once per file.
option(VX_PRECOMPILE "Precompile the toolkit's headers" ON)
function(vx_precompile target)
  if(VX_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN} "${CMAKE_SOURCE_DIR}/cmake/precompiled.h")
  endif()
endfunction()

# Sources are compiled a dozen to a unit: a build from nothing takes half the time. To edit one file
# over and over, configure with -DVX_UNITY=OFF.
option(VX_UNITY "Compile sources a dozen to a unit" OFF)
function(vx_unity target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${VX_UNITY} UNITY_BUILD_BATCH_SIZE 12)
  # A private record may have members of types that only its source file declares.
  if(VX_UNITY AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
  endif()
endfunction()
