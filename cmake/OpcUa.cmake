# OPC UA: the library open62541, from the system or from build/deps, where packaging/open62541.sh puts it.
# With it there is the target open62541::open62541; without it the programs know the demonstration server only.
set(TAVRIN_OPCUA "AUTO" CACHE STRING "OPC UA with open62541 1.4: AUTO (when it is there), ON (must be there), OFF")
set_property(CACHE TAVRIN_OPCUA PROPERTY STRINGS AUTO ON OFF)
set(TAVRIN_DEPS "${CMAKE_SOURCE_DIR}/build/deps/open62541" CACHE PATH "Folder with an unpacked open62541")
mark_as_advanced(TAVRIN_DEPS)

if(NOT TAVRIN_OPCUA STREQUAL "OFF")
  list(APPEND CMAKE_PREFIX_PATH "${TAVRIN_DEPS}/usr")
  find_package(open62541 1.4 CONFIG QUIET)
endif()

if(TARGET open62541::open62541)
  get_target_property(library open62541::open62541 LOCATION)
  message(STATUS "OPC UA: yes (${library})")
  cmake_path(IS_PREFIX TAVRIN_DEPS "${library}" NORMALIZE isUnpacked)
  if(isUnpacked)
    # The library's own libraries lie beside it. Only the old kind of run path leads to them too.
    target_link_options(open62541::open62541 INTERFACE -Wl,--disable-new-dtags)
    # Installed, they lie beside the programs.
    list(APPEND CMAKE_INSTALL_RPATH "$ORIGIN")
    cmake_path(GET library PARENT_PATH libraries)
    file(GLOB runtimeLibraries "${libraries}/*.so.*")
    install(FILES ${runtimeLibraries} DESTINATION "${CMAKE_INSTALL_LIBDIR}/tavrin")
  endif()
elseif(TAVRIN_OPCUA STREQUAL "ON")
  message(FATAL_ERROR "OPC UA: open62541 1.4 not found (packaging/open62541.sh gets it)")
else()
  message(STATUS "OPC UA: no (open62541 1.4 not found), demonstration server only")
endif()
