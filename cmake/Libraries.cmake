# The two libraries as others link them, Pellora::Fennick and Pellora::Lorrel:
# by default the static rooms behind one name each; with BUILD_SHARED_LIBS one
# shared library each, made of the same rooms. The desktop's rooms, and the
# base library's pictures that need them, stand in Lorrel.
get_property(rooms GLOBAL PROPERTY PELLORA_ROOMS)
set(lorrel_rooms ${rooms})
list(FILTER lorrel_rooms INCLUDE REGEX "^(lorrel.*|platform_(ui|menubar|input)|fennick_images)$")
set(fennick_rooms ${rooms})
list(REMOVE_ITEM fennick_rooms ${lorrel_rooms})

# pellora_library(<name> ROOMS <room>... [LINKS <library>...])
function(pellora_library name)
  cmake_parse_arguments(LIB "" "" "ROOMS;LINKS" ${ARGN})
  if(BUILD_SHARED_LIBS)
    pellora_shared_library(${name} ROOMS ${LIB_ROOMS} LINKS ${LIB_LINKS})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE ${LIB_ROOMS} ${LIB_LINKS})
  endif()
  add_library(Pellora::${name} ALIAS ${name})
endfunction()

# Everything but the three namespaces stays hidden: a program that links the
# library sees neither its templates' instances nor what it was built with.
function(pellora_shared_library name)
  cmake_parse_arguments(LIB "" "" "ROOMS;LINKS" ${ARGN})
  set(script "${PROJECT_SOURCE_DIR}/cmake/exports.map")
  string(TOLOWER ${name} file)
  set(objects)
  set(system Threads::Threads)
  foreach(room IN LISTS LIB_ROOMS)
    list(APPEND objects $<TARGET_OBJECTS:${room}>)
    get_target_property(libraries ${room} PELLORA_SYSTEM)
    list(APPEND system ${libraries})
  endforeach()
  add_library(${name} SHARED ${objects})
  set_target_properties(${name} PROPERTIES
    OUTPUT_NAME ${file} VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINK_DEPENDS "${script}")
  target_link_libraries(${name} PUBLIC ${LIB_LINKS} PRIVATE ${system})
  target_link_options(${name} PRIVATE "-Wl,--version-script=${script}" -Wl,--as-needed)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_include_directories(${name} INTERFACE
    "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>" "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/pellora>")
endfunction()

pellora_library(Fennick ROOMS ${fennick_rooms})
pellora_library(Lorrel ROOMS ${lorrel_rooms} LINKS Fennick)
