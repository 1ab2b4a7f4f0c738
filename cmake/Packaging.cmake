# The install tree and the packages: headers under include/pellora, libraries
# with exported targets and pkg-config files, Pellora.app, documents.
include(CMakePackageConfigHelpers)

set(config_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Pellora")
set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# Shared libraries are installed alone; static ones are their rooms.
function(pellora_install_library name)
  string(TOLOWER ${name} file)
  install(TARGETS ${name} EXPORT ${name}Targets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT lib${file}0 NAMELINK_COMPONENT lib${file}-dev)
  if(NOT BUILD_SHARED_LIBS)
    install(TARGETS ${ARGN} EXPORT ${name}Targets ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT lib${file}-dev)
  endif()
  install(EXPORT ${name}Targets NAMESPACE Pellora:: DESTINATION "${config_dir}" COMPONENT lib${file}-dev)
endfunction()

pellora_install_library(Fennick ${fennick_rooms})
pellora_install_library(Lorrel ${lorrel_rooms})

function(pellora_install_headers component)
  foreach(folder IN LISTS ARGN)
    get_filename_component(parent "${folder}" DIRECTORY)
    install(DIRECTORY "${folder}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/pellora/${parent}" COMPONENT ${component}
      FILES_MATCHING PATTERN "*.h" PATTERN "internal" EXCLUDE PATTERN "resources" EXCLUDE)
  endforeach()
endfunction()

file(GLOB platform_folders RELATIVE "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/platform/*")
set(desktop_folders ${platform_folders})
list(FILTER desktop_folders INCLUDE REGEX "/(ui|menubar|input)$")
list(REMOVE_ITEM platform_folders ${desktop_folders} platform/bus)  # the bus is the rooms' own affair
pellora_install_headers(libfennick-dev ${platform_folders} Fennick)
pellora_install_headers(liblorrel-dev ${desktop_folders} Lorrel)

set(PELLORA_RESOURCES "${CMAKE_INSTALL_DATADIR}/pellora")
configure_package_config_file(cmake/PelloraConfig.cmake.in "${PROJECT_BINARY_DIR}/PelloraConfig.cmake"
  INSTALL_DESTINATION "${config_dir}" PATH_VARS PELLORA_RESOURCES)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/PelloraConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/PelloraConfig.cmake" "${PROJECT_BINARY_DIR}/PelloraConfigVersion.cmake"
  cmake/Dependencies.cmake DESTINATION "${config_dir}" COMPONENT libfennick-dev)

# pkg-config files find their prefix from where they stand. They describe the
# shared libraries; whoever links the static rooms uses the CMake package.
function(pellora_install_pkgconfig name)
  set(PC_NAME ${name})
  string(TOLOWER ${name} PC_FILE)
  set(PC_REQUIRES "${ARGV1}")
  set(PC_DESCRIPTION "${ARGV2}")
  configure_file("${PROJECT_SOURCE_DIR}/packaging/library.pc.in" "${PROJECT_BINARY_DIR}/${PC_FILE}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${PC_FILE}.pc" DESTINATION "${pkgconfig_dir}" COMPONENT lib${PC_FILE}-dev)
endfunction()

if(BUILD_SHARED_LIBS)
  file(RELATIVE_PATH PC_PREFIX "/${pkgconfig_dir}" "/")
  pellora_install_pkgconfig(Fennick "" "Data store, texts, dates, coding, web requests and more")
  pellora_install_pkgconfig(Lorrel "fennick" "Desktop services: status items, hotkeys, files, applications, alerts")
endif()

include(Desktop)
include(Packages)
