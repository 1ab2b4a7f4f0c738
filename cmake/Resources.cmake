# pellora_resource_bundle(<target> <name>)
# The files of the current folder's resources/ as <name>.bundle, in the build
# tree's and the install tree's share/pellora, where the target's library looks.
function(pellora_resource_bundle target name)
  set(source "${CMAKE_CURRENT_SOURCE_DIR}/resources")
  set(bundle "${PROJECT_BINARY_DIR}/share/pellora/${name}.bundle")
  file(GLOB_RECURSE files RELATIVE "${source}" CONFIGURE_DEPENDS "${source}/*")
  set(copies)
  foreach(file IN LISTS files)
    add_custom_command(OUTPUT "${bundle}/${file}" DEPENDS "${source}/${file}"
      COMMAND ${CMAKE_COMMAND} -E copy "${source}/${file}" "${bundle}/${file}")
    list(APPEND copies "${bundle}/${file}")
  endforeach()
  add_custom_target(${name}_bundle ALL DEPENDS ${copies})
  add_dependencies(${target} ${name}_bundle)
  install(DIRECTORY "${source}/" DESTINATION "${CMAKE_INSTALL_DATADIR}/pellora/${name}.bundle" COMPONENT lib${target}0)
endfunction()
