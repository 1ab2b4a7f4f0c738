# Compiler settings shared by every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(pellora_settings INTERFACE)
target_compile_options(pellora_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
target_link_options(pellora_settings INTERFACE -Wl,--as-needed)
# Programs that wait all day keep only what they call.
set(released "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
target_compile_options(pellora_settings INTERFACE "$<${released}:-ffunction-sections;-fdata-sections>")
target_link_options(pellora_settings INTERFACE "$<${released}:-Wl,--gc-sections>")
set(PELLORA_FOR_SIZE "$<${released}:-Os>")
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports std::optional and std::variant members as maybe uninitialised
  # once inlined under sanitizers; the sanitizers themselves look for the real thing.
  target_compile_options(pellora_settings INTERFACE -Wno-maybe-uninitialized)
  # Optimised, it also takes "literal" + std::string for a copy onto itself (GCC bug 105651).
  target_compile_options(pellora_settings INTERFACE $<$<CONFIG:Release,RelWithDebInfo>:-Wno-restrict>)
endif()

if(PELLORA_SANITIZE)
  add_compile_options(-fsanitize=${PELLORA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${PELLORA_SANITIZE})
endif()

if(PELLORA_FUZZ)
  # Every room counts its branches, so that the fuzz targets can steer by them.
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

find_program(PELLORA_CCACHE ccache)
if(PELLORA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Paths are hashed relative to the checkout and a fresh file's time is no
  # reason to compile again, so that every clone shares one cache.
  set(CMAKE_CXX_COMPILER_LAUNCHER env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime "${PELLORA_CCACHE}")
endif()
find_program(PELLORA_MOLD mold)
if(PELLORA_MOLD AND PROJECT_IS_TOP_LEVEL)
  add_link_options(-fuse-ld=mold)
endif()
