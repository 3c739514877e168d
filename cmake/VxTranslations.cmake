# The texts of a component in other languages. Installed with vxcore's development files, so that a
# module outside of this tree is translated in the same way.
find_package(Qt5 5.15 REQUIRED COMPONENTS Core LinguistTools)

# Compiles translations/NAME_<language>.ts of the current folder into the objects of the target
# NAME_translations, which become part of a module as its other objects do. The English file has the
# plural forms.
function(vx_add_translations name)
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/translations/${name}_*.ts")
  set(compiled)
  set(entries)
  foreach(source IN LISTS sources)
    get_filename_component(base "${source}" NAME_WE)
    set(output "${CMAKE_CURRENT_BINARY_DIR}/${base}.qm")
    # What is not translated yet, or whose source text changed, is shown in English.
    add_custom_command(OUTPUT "${output}"
      COMMAND Qt5::lrelease -silent -nounfinished "${source}" -qm "${output}"
      DEPENDS "${source}" VERBATIM)
    list(APPEND compiled "${output}")
    string(APPEND entries "    <file>${base}.qm</file>\n")
  endforeach()
  set(list "${CMAKE_CURRENT_BINARY_DIR}/${name}_translations.qrc")
  file(CONFIGURE OUTPUT "${list}" @ONLY CONTENT
"<RCC>
  <qresource prefix=\"/translations\">
@entries@  </qresource>
</RCC>
")
  set(unit "${CMAKE_CURRENT_BINARY_DIR}/${name}_translations.cpp")
  add_custom_command(OUTPUT "${unit}"
    COMMAND Qt5::rcc --name ${name}_translations "${list}" -o "${unit}"
    DEPENDS "${list}" ${compiled} VERBATIM)
  add_library(${name}_translations OBJECT "${unit}")
  set_target_properties(${name}_translations PROPERTIES AUTOMOC OFF AUTORCC OFF
    POSITION_INDEPENDENT_CODE ON)
  target_link_libraries(${name}_translations PRIVATE Qt5::Core $<TARGET_NAME_IF_EXISTS:vx_settings>)
endfunction()
