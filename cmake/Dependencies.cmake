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
  "CURL=libcurl"
  "ZLIB=zlib"
  "CRYPTO=libcrypto"
  "SIMDJSON=simdjson"
  "GIO=gio-2.0"
  "GLIB=glib-2.0"
  "HEIF=libheif")

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
