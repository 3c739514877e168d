# Debian packages: cpack -G DEB in a build tree writes vxstudio, libvxcore4 and libvxcore-dev.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "VxTimeline maintainers <maintainers@vxstudio.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL vxstudio libvxcore4 libvxcore-dev)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Libraries of one package are found by the other's dependencies in the staging folders.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_SOURCE_DIR}/cmake/VxStaging.cmake")

set(CPACK_DEBIAN_VXSTUDIO_PACKAGE_NAME vxstudio)
set(CPACK_DEBIAN_VXSTUDIO_PACKAGE_SECTION graphics)
set(CPACK_COMPONENT_VXSTUDIO_DESCRIPTION "animate figures and edit motion capture on a timeline
VxStudio opens motion-capture files and scenes, shows their keys in a dope
sheet and a key graph, and edits millions of keys without delay.")
set(CPACK_COMPONENT_VXSTUDIO_DEPENDS libvxcore4)
# The toolkit's own texts in the user's language.
set(CPACK_DEBIAN_VXSTUDIO_PACKAGE_RECOMMENDS qttranslations5-l10n)

set(CPACK_DEBIAN_LIBVXCORE4_PACKAGE_NAME libvxcore4)
set(CPACK_DEBIAN_LIBVXCORE4_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBVXCORE4_PACKAGE_CONTROL_EXTRA "${CMAKE_SOURCE_DIR}/cmake/debian/triggers")
set(CPACK_COMPONENT_LIBVXCORE4_DESCRIPTION "host library of VxStudio and its plug-ins
Scene, keys, undo, panes, actions and scripts for plug-ins of VxStudio.")

set(CPACK_DEBIAN_LIBVXCORE-DEV_PACKAGE_NAME libvxcore-dev)
set(CPACK_DEBIAN_LIBVXCORE-DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_LIBVXCORE-DEV_PACKAGE_DEPENDS "qtbase5-dev, qtscript5-dev, qttools5-dev")
set(CPACK_COMPONENT_LIBVXCORE-DEV_DESCRIPTION "development files of VxStudio's plug-ins
Headers and CMake files for building plug-ins of VxStudio.")
set(CPACK_COMPONENT_LIBVXCORE-DEV_DEPENDS libvxcore4)

# What every package says about itself: its licence and the changes of this version.
string(REPLACE "\n" "\n  " changes "  ${VX_RELEASE_CHANGES}")
execute_process(COMMAND env LC_ALL=C date --utc --rfc-email --date=${VX_RELEASE_DATE}
                OUTPUT_VARIABLE release_date OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/packages/changelog" @ONLY CONTENT
"vxstudio (@PROJECT_VERSION@) stable; urgency=medium

@changes@

 -- VxTimeline maintainers <maintainers@vxstudio.example>  @release_date@
")
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/packages/copyright" @ONLY CONTENT
"Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: VxStudio

Files: *
Copyright: 2026 the VxTimeline maintainers
License: LicenseRef-proprietary
 All rights reserved until the maintainers choose a licence.
")
execute_process(COMMAND gzip -9nkf "${CMAKE_BINARY_DIR}/packages/changelog" COMMAND_ERROR_IS_FATAL ANY)
foreach(package IN LISTS CPACK_COMPONENTS_ALL)
  install(FILES "${CMAKE_BINARY_DIR}/packages/copyright" "${CMAKE_BINARY_DIR}/packages/changelog.gz"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${package})
endforeach()

include(CPack)
