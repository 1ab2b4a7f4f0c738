# The install tree: headers under include/pellora, libraries with exported targets.
include(CMakePackageConfigHelpers)

get_property(rooms GLOBAL PROPERTY PELLORA_ROOMS)
install(TARGETS ${rooms} EXPORT PelloraTargets ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(EXPORT PelloraTargets NAMESPACE Pellora:: DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Pellora")

foreach(library platform Fennick Lorrel)
  if(EXISTS "${PROJECT_SOURCE_DIR}/${library}")
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/${library}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/pellora"
      FILES_MATCHING PATTERN "*.h" PATTERN "internal" EXCLUDE PATTERN "platform/bus" EXCLUDE)
  endif()
endforeach()

configure_package_config_file(cmake/PelloraConfig.cmake.in "${PROJECT_BINARY_DIR}/PelloraConfig.cmake"
  INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Pellora")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/PelloraConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/PelloraConfig.cmake" "${PROJECT_BINARY_DIR}/PelloraConfigVersion.cmake"
  cmake/Dependencies.cmake DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Pellora")
include(CPack)
