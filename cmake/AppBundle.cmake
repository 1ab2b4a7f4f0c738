# pellora_app_bundle(<target> NAME <name> PLIST <template> [INSIDE <folder>])
# Makes the program of a target the executable of NAME.app, with the property
# list made from the template: in the build tree, and below PELLORA_APP_DIR
# when it is installed. INSIDE is the folder of a bundle that holds this one.
# Nothing in a bundle knows where it stands, so it may be moved as a whole.
set(PELLORA_APP_DIR "${CMAKE_INSTALL_LIBDIR}/pellora" CACHE STRING "Where Pellora.app is installed, below the prefix")

function(pellora_app_bundle target)
  cmake_parse_arguments(APP "" "NAME;PLIST;INSIDE" "" ${ARGN})
  if(APP_INSIDE)
    string(APPEND APP_INSIDE "/")
  endif()
  set(contents "${APP_INSIDE}${APP_NAME}.app/Contents")
  configure_file("${APP_PLIST}" "${PROJECT_BINARY_DIR}/${contents}/Info.plist" @ONLY)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME "${APP_NAME}" RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${contents}/MacOS")
  install(FILES "${PROJECT_BINARY_DIR}/${contents}/Info.plist" DESTINATION "${PELLORA_APP_DIR}/${contents}" COMPONENT pellora-launcher)
  install(TARGETS ${target} RUNTIME DESTINATION "${PELLORA_APP_DIR}/${contents}/MacOS" COMPONENT pellora-launcher)
endfunction()

# pellora_app_resources(<target> NAME <name>)
# The files of the current folder's resources/ as the resources of NAME.app.
function(pellora_app_resources target)
  cmake_parse_arguments(APP "" "NAME" "" ${ARGN})
  set(source "${CMAKE_CURRENT_SOURCE_DIR}/resources")
  set(resources "${APP_NAME}.app/Contents/Resources")
  file(GLOB_RECURSE files RELATIVE "${source}" CONFIGURE_DEPENDS "${source}/*")
  set(copies)
  foreach(file IN LISTS files)
    add_custom_command(OUTPUT "${PROJECT_BINARY_DIR}/${resources}/${file}" DEPENDS "${source}/${file}"
      COMMAND ${CMAKE_COMMAND} -E copy "${source}/${file}" "${PROJECT_BINARY_DIR}/${resources}/${file}")
    list(APPEND copies "${PROJECT_BINARY_DIR}/${resources}/${file}")
  endforeach()
  add_custom_target(${target}_resources ALL DEPENDS ${copies})
  add_dependencies(${target} ${target}_resources)
  install(DIRECTORY "${source}/" DESTINATION "${PELLORA_APP_DIR}/${resources}" COMPONENT pellora-launcher)
endfunction()
