# The control looks for the catalogue and the language files beside the file that it was built into. So
# programs, library and data share one folder, and the programs are linked from where the system looks.

set(folder "${CMAKE_INSTALL_LIBDIR}/tessara-modulinfo")

install(TARGETS modulinfo modulinfo-panel TESSARAModulInfo
        RUNTIME DESTINATION "${folder}" LIBRARY DESTINATION "${folder}")
install(DIRECTORY "${PROJECT_BINARY_DIR}/bin/" DESTINATION "${folder}"
        FILES_MATCHING PATTERN "TessaraDevices.xml" PATTERN "MERIDEX_CONF.?lg")

file(RELATIVE_PATH from_bin "/${CMAKE_INSTALL_BINDIR}" "/${folder}")
foreach(program modulinfo modulinfo-panel)
  install(CODE "
    set(bin \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    file(MAKE_DIRECTORY \"\${bin}\")
    file(CREATE_LINK \"${from_bin}/${program}\" \"\${bin}/${program}\" SYMBOLIC)")
endforeach()
