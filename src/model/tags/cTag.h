#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/shared/SharedName.h"
#include "model/tags/TagLine.h"

namespace tavrin {

/// One process variable of a device. All texts are kept as they are given and never parsed as numbers.
///
/// A refused assignment leaves the field, shows one message box, sets bLetError and does not mark the tag dirty; an
/// accepted one marks it dirty and clears bLetError. Texts without a check mark it dirty and leave bLetError alone.
class cTag {
 public:
  cTag() = default;
  cTag(cTag&&) noexcept = default;
  cTag& operator=(cTag&&) noexcept = default;

  /// Name of the tag file that the tag belongs to, 1 to 32 characters.
  [[nodiscard]] const std::string& szFileName() const { return szFileName_.Text(); }
  void szFileName(std::string_view value);
  /// Name under which clients see the tag.
  [[nodiscard]] std::string_view szTag() const { return line_.Get(TagLine::Name); }
  void szTag(std::string_view value);
  /// Address in the controller, e.g. "MB10". The source check is up to the caller.
  [[nodiscard]] std::string_view szData() const { return line_.Get(TagLine::Data); }
  void szData(std::string_view value);
  /// "RO", "RW" or, before the first accepted assignment, empty.
  [[nodiscard]] std::string_view szRW() const { return line_.Get(TagLine::Access); }
  void szRW(std::string_view value);

  [[nodiscard]] std::string_view szHystLB() const { return line_.Get(TagLine::HystLB); }
  void szHystLB(std::string_view value) { SetFreeText(TagLine::HystLB, value); }
  [[nodiscard]] std::string_view szHystUB() const { return line_.Get(TagLine::HystUB); }
  void szHystUB(std::string_view value) { SetFreeText(TagLine::HystUB, value); }
  [[nodiscard]] std::string_view szLB() const { return line_.Get(TagLine::LB); }
  void szLB(std::string_view value) { SetFreeText(TagLine::LB, value); }
  [[nodiscard]] std::string_view szUB() const { return line_.Get(TagLine::UB); }
  void szUB(std::string_view value) { SetFreeText(TagLine::UB, value); }
  [[nodiscard]] std::string_view szComment() const { return line_.Get(TagLine::Comment); }
  void szComment(std::string_view value) { SetFreeText(TagLine::Comment, value); }
  /// Test value of the scripted test run.
  [[nodiscard]] std::string_view szTest() const { return line_.Get(TagLine::Test); }
  void szTest(std::string_view value) { SetFreeText(TagLine::Test, value); }
  /// Second test value and quality last received: working fields of the test run, never saved. 192 is good quality.
  [[nodiscard]] std::string_view szTest2() const { return line_.Get(TagLine::Test2); }
  void szTest2(std::string_view value) { line_.Set(TagLine::Test2, value); }
  [[nodiscard]] std::int32_t nQuality() const { return nQuality_; }
  void nQuality(std::int32_t value) { nQuality_ = value; }

  /// The line of the tag file (TagLine::Complete), its name in upper case when the project's nSaveTagsUppercase is 1.
  [[nodiscard]] std::string szComplete() const;
  /// Appends szComplete to `line`; `upperCaseName` as the project's nSaveTagsUppercase says.
  void AppendComplete(std::string& line, bool upperCaseName) const;
  /// The row of the tag grid: key, name, data, RW, bounds, test value and comment, joined by tabs.
  [[nodiscard]] std::string szTagGridLine() const;

  /// True when the tag differs from its file.
  [[nodiscard]] bool bDataDirty() const { return bDataDirty_; }
  void bDataDirty(bool value) { bDataDirty_ = value; }
  /// True when the last checked assignment was refused.
  [[nodiscard]] bool bLetError() const { return bLetError_; }
  void bLetError(bool value) { bLetError_ = value; }

 private:
  friend class TagFileReader;  // stores all texts of a line at once
  friend class cTags;          // marks what it has taken over

  /// Asks the server's check; the text is what the check left of it. Tells a refusal and notes it in bLetError, but for
  /// a result that no check should give: that one leaves bLetError as it is.
  [[nodiscard]] bool AcceptName(std::string& name);
  /// Tells a refusal and notes it in bLetError.
  void RefuseAndNote(std::string_view message);

  /// The one nCaseSensitive with which names and data are stored in upper case. The project's setting is 0 or 1, so
  /// both keep the case in which they are given: what the user typed is what he finds again.
  static constexpr std::int32_t kStoresUpperCase = -1;
  [[nodiscard]] static std::string AsStored(std::string_view value);

  void StoreChecked(TagLine::Text text, std::string_view value);
  void SetFreeText(TagLine::Text text, std::string_view value);

  /// The name under which the tag was added to its list, which a later change of szTag does not touch.
  [[nodiscard]] std::string_view ListName() const {
    return line_.Get(renamedInList_ ? TagLine::ListName : TagLine::Name);
  }

  TagLine line_;
  SharedName szFileName_;
  std::int32_t nQuality_ = 0;
  bool bDataDirty_ = false;
  bool bLetError_ = false;
  bool inList_ = false;
  bool renamedInList_ = false;
};

}  // namespace tavrin
