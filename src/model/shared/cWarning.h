#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "model/shared/SharedName.h"

namespace tavrin {

/// Kinds of objects that a warning concerns: the values of cWarning::nType.
enum class WarningKind : std::int32_t { Opc = 0, Network = 1, Device = 2, Tag = 3 };

/// One problem found while a project was read or written. Any field takes any value.
class cWarning {
 public:
  [[nodiscard]] std::int32_t nType() const { return nType_; }
  void nType(std::int32_t value) { nType_ = value; }

  /// "OPC", "Network", "Device" or "Tag" for nType 0 to 3, the same in every language; else empty.
  [[nodiscard]] std::string_view szType() const;

  /// Bare name of the file that the warning concerns.
  [[nodiscard]] const std::string& szFileName() const { return szFileName_.Text(); }
  void szFileName(std::string_view value) { szFileName_ = SharedName(value); }

  /// The finished text.
  [[nodiscard]] const std::string& szText() const { return szText_; }
  void szText(std::string value) { szText_ = std::move(value); }

 private:
  std::int32_t nType_ = 0;
  SharedName szFileName_;
  std::string szText_;
};

}  // namespace tavrin
