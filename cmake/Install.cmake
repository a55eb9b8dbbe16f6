# Where `cmake --install` puts things, and how a program of the project is installed. Three components:
# program, tools, documents.
include(GNUInstallDirs)

option(QUILLMARK_ONE_FOLDER
       "Install everything into one folder, which runs from anywhere, instead of a system's own" ${WIN32})

if(QUILLMARK_ONE_FOLDER)
  set(QUILLMARK_PROGRAMS .)
  set(QUILLMARK_DATA .)
  set(QUILLMARK_DOCUMENTS .)
  set(QUILLMARK_LICENCES licences)
  set(QUILLMARK_MAN_PAGES man/man1)
else()
  set(QUILLMARK_PROGRAMS ${CMAKE_INSTALL_BINDIR})
  set(QUILLMARK_DATA ${CMAKE_INSTALL_DATADIR}/quillmark)
  set(QUILLMARK_DOCUMENTS ${CMAKE_INSTALL_DATADIR}/doc/quillmark)
  set(QUILLMARK_LICENCES ${QUILLMARK_DOCUMENTS})
  set(QUILLMARK_MAN_PAGES ${CMAKE_INSTALL_MANDIR}/man1)
endif()

# The program finds its data from where it stands, so that the installed tree can be moved.
file(RELATIVE_PATH QUILLMARK_DATA_FROM_PROGRAM ${CMAKE_INSTALL_FULL_BINDIR}
     ${CMAKE_INSTALL_FULL_DATADIR}/quillmark)

# quillmark_compressed(SOURCE TARGET): a file as documents are kept on a system, without a time in it.
find_program(GZIP gzip)
function(quillmark_compressed source target)
  add_custom_command(
    OUTPUT ${target}
    COMMAND ${GZIP} -9nc ${source} > ${target}
    DEPENDS ${source}
    VERBATIM)
endfunction()

# quillmark_page_as_text(PAGE TARGET): a man page for a system without man.
find_program(GROFF groff)
function(quillmark_page_as_text page target)
  add_custom_command(
    OUTPUT ${target}
    COMMAND ${GROFF} -man -Tascii -P-cbou -rLL=90n -rHY=0 -dAD=l ${page} > ${target}
    DEPENDS ${page}
    VERBATIM)
endfunction()

# Installs the program `target` and its page docs/man/<target>.1 with the given component. On Windows, where the
# manual tells all of the editor, only tools have a page: a text beside them.
function(quillmark_install_program target component)
  install(TARGETS ${target} RUNTIME DESTINATION ${QUILLMARK_PROGRAMS} COMPONENT ${component})
  set(page ${CMAKE_CURRENT_BINARY_DIR}/${target}.1)
  configure_file(${PROJECT_SOURCE_DIR}/docs/man/${target}.1 ${page} @ONLY)
  if(WIN32)
    if(GROFF AND component STREQUAL tools)
      set(text ${CMAKE_CURRENT_BINARY_DIR}/${target}.txt)
      quillmark_page_as_text(${page} ${text})
      add_custom_target(${target}_page ALL DEPENDS ${text})
      install(FILES ${text} DESTINATION ${QUILLMARK_DOCUMENTS} COMPONENT ${component})
    endif()
    return()
  endif()
  if(GZIP AND NOT QUILLMARK_ONE_FOLDER)
    quillmark_compressed(${page} ${page}.gz)
    add_custom_target(${target}_page ALL DEPENDS ${page}.gz)
    set(page ${page}.gz)
  endif()
  install(FILES ${page} DESTINATION ${QUILLMARK_MAN_PAGES} COMPONENT ${component})
endfunction()
