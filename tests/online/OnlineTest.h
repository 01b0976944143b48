#pragma once

#include <string>
#include <vector>

#include "support/ProjectTest.h"
#include "support/ScriptedOpcServers.h"

namespace tavrin {

/// A project, and a server that a test drives.
class OnlineTest : public ProjectTest {
 protected:
  OnlineTest() { around.all.opc = &server; }

  static const char* ProgID() {
    return std::string_view(TAVRIN_TEST_BRAND) == "QORVANE" ? "Qorvane.OPCServer.1" : "Zelkar.OPCServer.1";
  }
  static constexpr const char* kDemoProgID = "Softing.OPCToolboxDemo_ServerDA.1";

  [[nodiscard]] static Variant Text(const char* text) { return Variant::OfText(text); }
  [[nodiscard]] static Variant Number(std::int64_t number) { return {VariantType::Int32, number}; }

  ScriptedOpcServers server;
};

}  // namespace tavrin
