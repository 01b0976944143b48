#pragma once

#include "online/opc/OpcClientTest.h"
#include "online/opc/UaTestServer.h"

namespace tavrin {

/// A client, and a server with the ProgID "Plant" that it can connect to.
class UaClientTest : public OpcClientTest {
 protected:
  explicit UaClientTest(UaTestServer::Setup setup = {}) : server(std::move(setup)) {
    Configure("");
    server.Start();
  }

  /// Further keys of the server, each as ".Key=value".
  void Configure(const std::string& keys) {
    std::string lines = "[Servers]\r\nPlant=" + server.Endpoint() + "\r\n";
    for (std::size_t begin = 0; begin < keys.size();) {
      const std::size_t end = keys.find('\n', begin);
      lines += "Plant" + keys.substr(begin, end - begin) + "\r\n";
      begin = end == std::string::npos ? keys.size() : end + 1;
    }
    directory.Write("Tavrin.INI", lines);
  }

  void AddWord(const std::string& name, UA_UInt16 value) { server.Add(name, &value, UA_TYPES_UINT16); }
  void SetWord(const std::string& name, UA_UInt16 value, UA_StatusCode status = UA_STATUSCODE_GOOD) {
    server.Set(name, &value, UA_TYPES_UINT16, status);
  }
  static Variant Word(std::uint64_t value) { return {VariantType::UInt16, value}; }

  UaTestServer server;
};

}  // namespace tavrin
