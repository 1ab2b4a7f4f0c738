# pellora_bench(<target> [LINKS <room>...] [PEERS <system library>...])
# One benchmark program from the current folder, ours and its peers in one run.
function(pellora_bench target)
  cmake_parse_arguments(BENCH "" "" "LINKS;PEERS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  add_executable(${target} ${sources})
  target_link_libraries(${target} PRIVATE ${BENCH_LINKS} ${BENCH_PEERS} pellora_settings)
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
endfunction()
