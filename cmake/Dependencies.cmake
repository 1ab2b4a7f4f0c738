# The system libraries, each as an imported target. A room links the ones that
# it answers with, PRIVATE; nothing above platform/ links any of them.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

set(PELLORA_PKG_MODULES
  "SYSTEMD=libsystemd"
  "PLIST=libplist-2.0"
  "ICU=icu-i18n,icu-uc"
  "XCB=xcb,xcb-xkb"
  "XKB=xkbcommon-x11,xkbcommon"
  "ZLIB=zlib"
  "CRYPTO=libcrypto"
  "SIMDJSON=simdjson"
  "GLIB=glib-2.0")
# Loaded when they are first needed: only our own build reads their headers, no user of the libraries does.
if(NOT DEFINED CMAKE_FIND_PACKAGE_NAME)
  list(APPEND PELLORA_PKG_MODULES "CURL=libcurl" "GIO=gio-2.0" "HEIF=libheif")
endif()

foreach(entry IN LISTS PELLORA_PKG_MODULES)
  string(REPLACE "=" ";" parts "${entry}")
  list(GET parts 0 prefix)
  list(GET parts 1 modules)
  string(REPLACE "," ";" modules "${modules}")
  pkg_check_modules(${prefix} REQUIRED IMPORTED_TARGET GLOBAL ${modules})
endforeach()

if(PELLORA_DESKTOP)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)
endif()
