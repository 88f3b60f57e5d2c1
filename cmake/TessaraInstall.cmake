# Where everything is installed.
#
# The control looks for the catalogue, the language files and the help in the folder of the file that
# contains it: the shared library, or a program. The library and the programs are therefore each in a
# folder of their own with links to the one copy of the data, and the system finds them through links in
# the usual places.

set(data_folder "${CMAKE_INSTALL_DATADIR}/tessara-modulinfo")
# Libraries with different ABI numbers can be installed side by side.
set(library_folder "${CMAKE_INSTALL_LIBDIR}/tessara-modulinfo-${TESSARA_ABI}")
set(program_folder "${CMAKE_INSTALL_LIBEXECDIR}/tessara-modulinfo")
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/TessaraModulInfo")

set(data_files TessaraDevices.xml)
foreach(letter d e f s i p t r c z j)
  list(APPEND data_files "MERIDEX_CONF.${letter}lg")
endforeach()
# Each help as one file, and as a folder of pages for browsers.
set(help Help_001 Help_049)

# install_link(<path> <target> <component>): installs a link; both paths are below the prefix.
function(install_link path target component)
  get_filename_component(folder "${path}" DIRECTORY)
  file(RELATIVE_PATH target "/${folder}" "/${target}")
  set(link "${PROJECT_BINARY_DIR}/links/${path}")
  get_filename_component(links "${link}" DIRECTORY)
  file(MAKE_DIRECTORY "${links}")
  file(CREATE_LINK "${target}" "${link}" SYMBOLIC)
  install(FILES "${link}" DESTINATION "${folder}" COMPONENT ${component})
endfunction()

# install_data_links(<folder> <component>): installs links to the data in a folder.
function(install_data_links folder component)
  foreach(name IN LISTS data_files help)
    install_link("${folder}/${name}" "${data_folder}/${name}" ${component})
  endforeach()
  foreach(name IN LISTS help)
    install_link("${folder}/${name}.chm" "${data_folder}/${name}.chm" ${component})
  endforeach()
endfunction()

# Data
list(TRANSFORM data_files PREPEND "${PROJECT_BINARY_DIR}/bin/" OUTPUT_VARIABLE built_data)
install(FILES ${built_data} DESTINATION "${data_folder}" COMPONENT data)
foreach(name IN LISTS help)
  install(FILES "${PROJECT_BINARY_DIR}/bin/${name}.chm" DESTINATION "${data_folder}" COMPONENT data)
  install(DIRECTORY "${PROJECT_BINARY_DIR}/bin/${name}" DESTINATION "${data_folder}" COMPONENT data
          FILES_MATCHING PATTERN "*.html" PATTERN "*.css" PATTERN "*.png")
endforeach()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/data/modules" DESTINATION "${data_folder}" COMPONENT data)

# Programs. The panel uses the data links of the command line.
install(TARGETS modulinfo RUNTIME DESTINATION "${program_folder}" COMPONENT commandline)
install(TARGETS modulinfo-panel RUNTIME DESTINATION "${program_folder}" COMPONENT panel)
install_data_links("${program_folder}" commandline)
install_link("${CMAKE_INSTALL_BINDIR}/modulinfo" "${program_folder}/modulinfo" commandline)
install_link("${CMAKE_INSTALL_BINDIR}/modulinfo-panel" "${program_folder}/modulinfo-panel" panel)

# Library
install(TARGETS TESSARAModulInfo EXPORT TessaraModulInfo
        LIBRARY DESTINATION "${library_folder}" COMPONENT library NAMELINK_SKIP
        FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/tessara-modulinfo" COMPONENT development)
install_data_links("${library_folder}" library)
set(soname "libTESSARAModulInfo.so.${TESSARA_ABI}")
install_link("${CMAKE_INSTALL_LIBDIR}/${soname}" "${library_folder}/${soname}" library)

# Development
install_link("${CMAKE_INSTALL_LIBDIR}/libTESSARAModulInfo.so" "${CMAKE_INSTALL_LIBDIR}/${soname}" development)
install(EXPORT TessaraModulInfo NAMESPACE TessaraModulInfo:: FILE TessaraModulInfoTargets.cmake
        DESTINATION "${package_folder}" COMPONENT development)
include(CMakePackageConfigHelpers)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/TessaraModulInfoConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/package/TessaraModulInfoConfig.cmake" INSTALL_DESTINATION "${package_folder}"
  NO_SET_AND_CHECK_MACRO)
# Before 1.0 each minor version may change the interface to hosts.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/TessaraModulInfoConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/package/TessaraModulInfoConfig.cmake"
              "${PROJECT_BINARY_DIR}/package/TessaraModulInfoConfigVersion.cmake"
        DESTINATION "${package_folder}" COMPONENT development)

# The paths in the pkg-config file are relative to its own folder, so that the prefix may be moved.
file(RELATIVE_PATH to_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file("${PROJECT_SOURCE_DIR}/cmake/tessara-modulinfo.pc.in"
               "${PROJECT_BINARY_DIR}/package/tessara-modulinfo.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/package/tessara-modulinfo.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
