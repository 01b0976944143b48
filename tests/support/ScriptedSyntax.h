#pragma once

#include <functional>
#include <string>

#include "model/shared/LengthSyntax.h"

namespace tavrin {

/// The checker of the program, each of whose questions a test can answer itself.
class ScriptedSyntax : public ServerSyntax {
 public:
  std::function<std::int32_t(std::string&)> tagName = [this](std::string& text) { return length_.CheckTagName(text); };
  std::function<std::int32_t(std::string&)> nodeName = [this](std::string& text) {
    return length_.CheckNodeName(text);
  };
  std::function<std::int32_t(std::string&, std::int32_t, std::int32_t)> source =
      [this](std::string& text, std::int32_t type, std::int32_t plc) { return length_.CheckSource(text, type, plc); };

  std::int32_t CheckTagName(std::string& text) override { return tagName(text); }
  std::int32_t CheckNodeName(std::string& text) override { return nodeName(text); }
  std::int32_t CheckSource(std::string& text, std::int32_t type, std::int32_t plc) override {
    return source(text, type, plc);
  }

 private:
  LengthSyntax length_;
};

}  // namespace tavrin
