#pragma once

namespace tavrin {

class FileProperties;
class OpcServers;
class Programs;
class Regional;
class ServiceControl;

/// What lies around the editor and its project: other programs, the server, clock and habits of the user. The services
/// outlive who uses them.
struct Surroundings {
  Programs& programs;
  Regional& regional;
  FileProperties& fileProperties;
  ServiceControl& service;
  OpcServers* opc = nullptr;  ///< connections to OPC servers; nullptr where nothing online can be had
};

}  // namespace tavrin
