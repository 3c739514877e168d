# The newest release in CHANGELOG.md, "## 1.2.3 (2026-01-31)" and the list below it, is the version of
# the program, of its packages and of the about box: VX_RELEASE_VERSION, VX_RELEASE_DATE and
# VX_RELEASE_CHANGES, the lines of the list.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/CHANGELOG.md")
file(READ "${CMAKE_CURRENT_SOURCE_DIR}/CHANGELOG.md" changelog)
set(heading "## ([0-9]+\\.[0-9]+\\.[0-9]+) \\(([0-9]+-[0-9]+-[0-9]+)\\)\n")
string(REGEX MATCH "${heading}" found "${changelog}")
if(NOT found)
  message(FATAL_ERROR "CHANGELOG.md has no release heading such as \"## 1.2.3 (2026-01-31)\".")
endif()
set(VX_RELEASE_VERSION "${CMAKE_MATCH_1}")
set(VX_RELEASE_DATE "${CMAKE_MATCH_2}")
string(FIND "${changelog}" "${found}" start)
string(LENGTH "${found}" length)
math(EXPR start "${start} + ${length}")
string(SUBSTRING "${changelog}" ${start} -1 VX_RELEASE_CHANGES)
string(REGEX REPLACE "\n## .*" "\n" VX_RELEASE_CHANGES "${VX_RELEASE_CHANGES}")
string(STRIP "${VX_RELEASE_CHANGES}" VX_RELEASE_CHANGES)
