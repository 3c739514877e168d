# Run by cpack before it writes a package: libraries in the system's folders need no search paths
# of their own.
file(GLOB_RECURSE files LIST_DIRECTORIES false "${CPACK_TEMPORARY_DIRECTORY}/*")
foreach(file IN LISTS files)
  if(IS_SYMLINK "${file}")
    continue()
  endif()
  file(READ "${file}" magic LIMIT 4 HEX)
  if(magic STREQUAL "7f454c46")
    file(RPATH_REMOVE FILE "${file}")
  endif()
endforeach()
