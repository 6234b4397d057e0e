# What an installation holds beside the programs, and the Debian package of it.
#
# The manual page orlo(1) and the bash completion are written at build time by
# orlo-docs, from the command specifications of the built plug-ins and of the host,
# with the code that writes `orlo help`: the three cannot say different things. The
# sample incident report and the device images go to share/orlo, where the manual
# page's examples find them.

set(ORLO_DATA_DIR ${CMAKE_INSTALL_DATADIR}/orlo)
set(docs ${PROJECT_BINARY_DIR}/docs)
find_program(ORLO_GZIP gzip REQUIRED)

# Every module library of the source tree is a plug-in, whichever folder builds it.
function(orlo_collect_plugins directory result)
  set(found ${${result}})
  get_property(targets DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "MODULE_LIBRARY")
      list(APPEND found ${target})
    endif()
  endforeach()
  get_property(subdirectories DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
  foreach(subdirectory IN LISTS subdirectories)
    if(subdirectory MATCHES "^${PROJECT_SOURCE_DIR}/src(/|$)")
      orlo_collect_plugins(${subdirectory} found)
    endif()
  endforeach()
  set(${result} ${found} PARENT_SCOPE)
endfunction()

set(plugins)
orlo_collect_plugins(${PROJECT_SOURCE_DIR} plugins)
set(plugin_files)
foreach(plugin IN LISTS plugins)
  list(APPEND plugin_files $<TARGET_FILE:${plugin}>)
endforeach()

# orlo-docs loads the plug-ins from one folder, as orlo does; a fresh copy each time,
# so that a plug-in no longer built leaves no command behind.
add_custom_command(
  OUTPUT ${docs}/orlo.1.gz ${docs}/orlo
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${docs}/plugins
  COMMAND ${CMAKE_COMMAND} -E make_directory ${docs}/plugins
  COMMAND ${CMAKE_COMMAND} -E copy ${plugin_files} ${docs}/plugins
  COMMAND orlo_docs ${docs}/plugins ${ORLO_DATA_DIR} ${docs}/orlo.1 ${docs}/orlo
  # Debian's way: compressed, with no name or time in the header, so that a rebuild
  # gives the same bytes.
  COMMAND ${ORLO_GZIP} -9nf ${docs}/orlo.1
  DEPENDS orlo_docs ${plugins}
  COMMENT "Writing the manual page orlo(1) and the bash completion"
  VERBATIM)
add_custom_target(orlo_docs_pages ALL DEPENDS ${docs}/orlo.1.gz ${docs}/orlo)

install(FILES ${docs}/orlo.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# The folder that bash-completion loads a command's completion from on first use.
install(FILES ${docs}/orlo DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples/ DESTINATION ${ORLO_DATA_DIR}/samples)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/tests/data/images/ DESTINATION ${ORLO_DATA_DIR}/images)

# `cpack -G DEB` in the build folder: orlo_<version>_amd64.deb, installing into /usr.
# orlo finds its plug-ins, its toolkit library and the provider from its own place,
# /usr/bin, in /usr/lib/orlo and /usr/libexec/orlo; the provider, named powershell, is
# thus never on the default PATH.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orlo)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "toolkit for looking after solid-state drives")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "\
orlo shows what NVMe and SATA drives answer to Identify and log-page commands,
decoded, as text, JSON, XML or CSV; records a drive into a device image that
stands in for it; and adds files to incident-report archives.")
set(ORLO_PACKAGE_MAINTAINER "orlo developers <orlo@localhost>" CACHE STRING
  "Maintainer field of the Debian package")
set(CPACK_PACKAGE_CONTACT ${ORLO_PACKAGE_MAINTAINER})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
# Depends from the libraries that the programs and plug-ins link, as dpkg-shlibdeps
# finds them (it needs dpkg-dev and file); the toolkit's own library is in the package.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
include(CPack)
