# The unit of systemd under which tavrin-sim is the OPC server of a machine. Its name is that of the service which the
# editor of this brand restarts. It is made when it is installed, since it names the place of the installation.
if(OEM_BRAND STREQUAL "QORVANE")
  set(unit QorvaneOpcServer)
  set(description "Qorvane OPC Server")
else()
  set(unit ZelkarOpcServer)
  set(description "Zelkar OPC Server")
endif()
install(CODE "
  set(description \"${description}\")
  cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_PREFIX OUTPUT_VARIABLE prefix)
  cmake_path(APPEND prefix \"${CMAKE_INSTALL_BINDIR}\" tavrin-sim OUTPUT_VARIABLE program)
  cmake_path(APPEND prefix \"${TAVRIN_INSTALL_DIRECTORY}\" INI ZOPCSRV.ini OUTPUT_VARIABLE project)
  configure_file(\"${CMAKE_SOURCE_DIR}/packaging/opcserver.service.in\" \"${CMAKE_BINARY_DIR}/${unit}.service\" @ONLY)
")
install(FILES "${CMAKE_BINARY_DIR}/${unit}.service" DESTINATION lib/systemd/system)
