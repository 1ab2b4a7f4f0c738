# Debian packages, one a component, by CPack (tools/packages.txt is about
# building; these are about using). Made with BUILD_SHARED_LIBS.
set(CPACK_PACKAGE_NAME pellora)
set(CPACK_PACKAGE_VENDOR "Orvane")
set(CPACK_PACKAGE_CONTACT "Pellora developers <developers@orvane.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Login launcher and desktop libraries")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_COMPONENTS_ALL libfennick0 libfennick-dev liblorrel0 liblorrel-dev pellora-launcher pellora-doc)
set(same_version "(= ${PROJECT_VERSION})")

# pellora_package(<component> <section> <description> [DEPENDS <text>] [RECOMMENDS <text>] [NO_PROGRAMS])
# Linked libraries add their packages themselves; those that are loaded on use are named.
macro(pellora_package component section description)
  cmake_parse_arguments(PKG "NO_PROGRAMS" "DEPENDS;RECOMMENDS" "" ${ARGN})
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${component})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${description}")
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${PKG_DEPENDS}")
  set(CPACK_DEBIAN_${upper}_PACKAGE_RECOMMENDS "${PKG_RECOMMENDS}")
  if(PKG_NO_PROGRAMS)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS OFF)
    set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE all)
  else()
    set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS ON)
  endif()
endmacro()

pellora_package(libfennick0 libs "Base library: data store, texts, dates, coding, web requests" DEPENDS
  "libcurl4, libglib2.0-0")
pellora_package(libfennick-dev libdevel "Base library, headers" DEPENDS "libfennick0 ${same_version}")
pellora_package(liblorrel0 libs "Desktop library: status items, hotkeys, files, applications" DEPENDS
  "libfennick0 ${same_version}, shared-mime-info" RECOMMENDS "libheif1")
pellora_package(liblorrel-dev libdevel "Desktop library, headers" DEPENDS
  "liblorrel0 ${same_version}, libfennick-dev ${same_version}")
pellora_package(pellora-launcher utils "Status-bar system monitor and its login launcher" RECOMMENDS "libcurl4")
pellora_package(pellora-doc doc "Guides of the libraries and the launcher" NO_PROGRAMS)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
include(CPack)
