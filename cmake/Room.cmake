# pellora_add_rooms(<pattern>...): add every matching folder that has a CMakeLists.txt.
function(pellora_add_rooms)
  foreach(pattern IN LISTS ARGN)
    file(GLOB lists CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${pattern}/CMakeLists.txt")
    foreach(list IN LISTS lists)
      get_filename_component(folder "${list}" DIRECTORY)
      add_subdirectory("${folder}")
    endforeach()
  endforeach()
endfunction()

# pellora_room(<target> [SMALL] [FOLDERS <dir>...] [LINKS <public>...] [SYSTEM <system library>...] [LOADED <system library>...])
# One static library from the .cpp files of its folders (default: the current one).
# LINKS are rooms whose headers ours include; SYSTEM libraries stay private.
# LOADED ones are not linked, only their headers are read: SystemLibrary brings
# them in when they are first needed (cmake/Packages.cmake names their packages).
# SMALL rooms wait for the kernel or the bus and are part of programs that stay
# all day: they are compiled for size, which also spares page faults at the start.
function(pellora_room target)
  cmake_parse_arguments(ROOM "SMALL" "" "FOLDERS;LINKS;SYSTEM;LOADED" ${ARGN})
  if(NOT ROOM_FOLDERS)
    set(ROOM_FOLDERS .)
  endif()
  set(sources)
  foreach(folder IN LISTS ROOM_FOLDERS)
    file(GLOB found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/internal/*.cpp")
    list(APPEND sources ${found})
  endforeach()
  add_library(${target} STATIC ${sources})
  add_library(Pellora::${target} ALIAS ${target})
  target_include_directories(${target} PUBLIC
    "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>" "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/pellora>")
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PUBLIC ${ROOM_LINKS} PRIVATE ${ROOM_SYSTEM} "$<BUILD_INTERFACE:pellora_settings>")
  set_target_properties(${target} PROPERTIES PELLORA_SYSTEM "${ROOM_SYSTEM}")
  foreach(library IN LISTS ROOM_LOADED)
    target_include_directories(${target} SYSTEM PRIVATE $<TARGET_PROPERTY:${library},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
  if(ROOM_SMALL)
    target_compile_options(${target} PRIVATE ${PELLORA_FOR_SIZE})
  endif()
  set_property(GLOBAL APPEND PROPERTY PELLORA_ROOMS ${target})
endfunction()

# pellora_program(<target> [LINKS <room>...]): an executable from the current folder.
function(pellora_program target)
  cmake_parse_arguments(PROGRAM "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  add_executable(${target} ${sources})
  target_link_libraries(${target} PRIVATE ${PROGRAM_LINKS} pellora_settings)
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
endfunction()
