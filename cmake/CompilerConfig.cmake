# Interface targets that every library and program of the project links.

add_library(quillmark_config INTERFACE)
target_include_directories(quillmark_config INTERFACE ${PROJECT_SOURCE_DIR})

if(MSVC)
  target_compile_options(quillmark_config INTERFACE /W4 /utf-8)
  if(QUILLMARK_WERROR)
    target_compile_options(quillmark_config INTERFACE /WX)
  endif()
else()
  target_compile_options(
    quillmark_config
    INTERFACE -Wall -Wextra -Wpedantic
              -Wconversion # a narrowing is checked by type or written down
              -Wshadow # a name means one thing
  )
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 takes "text" + std::string for an overlapping copy.
    target_compile_options(quillmark_config INTERFACE -Wno-restrict)
  endif()
  if(QUILLMARK_WERROR)
    target_compile_options(quillmark_config INTERFACE -Werror)
  endif()
endif()

if(QUILLMARK_SANITIZE)
  target_compile_options(
    quillmark_config INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                               -fno-omit-frame-pointer)
  target_link_options(quillmark_config INTERFACE -fsanitize=address,undefined)
endif()

# quillmark_precompile(target HEADER...): parses these headers once for the target. It is for the
# speed of a first build alone: without the option each file has to name what it uses.
function(quillmark_precompile target)
  if(QUILLMARK_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# quillmark_share_precompiled(owner TARGET...): the same headers for further targets.
function(quillmark_share_precompiled owner)
  if(QUILLMARK_PRECOMPILE)
    foreach(target ${ARGN})
      target_precompile_headers(${target} REUSE_FROM ${owner})
    endforeach()
  endif()
endfunction()

# A static library of one folder: quillmark_library(name SOURCES ... LINKS ...)
function(quillmark_library name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LINKS")
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC quillmark_config ${ARG_LINKS})
endfunction()
