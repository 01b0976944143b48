#include "model/tags/cTag.h"

#include "model/cOPC.h"
#include "model/shared/Messages.h"
#include "model/shared/modMain.h"
#include "model/shared/modParser.h"
#include "model/shared/modText.h"
#include "platform/CodePage.h"

namespace tavrin {

namespace {

constexpr std::size_t kLongestFileName = 32;
// Only a broken checker gives it. The wording is fixed in every language, so that support finds it letter by letter.
constexpr std::string_view kUnknownCheckResult = "unbekannter Fehler beim Prüfen eibnes Tagnames (cTag.szTag)";

}  // namespace

void cTag::szFileName(std::string_view value) {
  if (value.empty()) {
    RefuseAndNote(EmptyRefused());
  } else if (value.size() > kLongestFileName) {
    RefuseAndNote(TextAnd(204, ResText(225)));
  } else {
    szFileName_ = SharedName(value);
    bDataDirty_ = true;
    bLetError_ = false;
  }
}

void cTag::RefuseAndNote(std::string_view message) {
  Refuse(message);
  bLetError_ = true;
}

std::string cTag::AsStored(std::string_view value) {
  return modMain::OpenProject().nCaseSensitive() == kStoresUpperCase ? UpperCase(value) : std::string(value);
}

bool cTag::AcceptName(std::string& name) {
  const std::int32_t result = ParserIsValidTagName(name);
  if (result == 0) return true;
  const std::int32_t text = NameCheckText(result);
  if (text == 0) {
    Refuse(FromUtf8(kUnknownCheckResult).value_or(std::string(kUnknownCheckResult)));
  } else {
    RefuseAndNote(ResText(text));
  }
  return false;
}

void cTag::StoreChecked(TagLine::Text text, std::string_view value) {
  line_.Set(text, value);
  bDataDirty_ = true;
  bLetError_ = false;
}

void cTag::szTag(std::string_view value) {
  std::string name(value);
  if (!AcceptName(name)) return;
  if (inList_ && !renamedInList_) {
    line_.Set(TagLine::ListName, szTag());
    renamedInList_ = true;
  }
  StoreChecked(TagLine::Name, AsStored(name));
}

void cTag::szData(std::string_view value) {
  if (value.empty()) {
    RefuseAndNote(ResText(227));
  } else {
    StoreChecked(TagLine::Data, AsStored(value));
  }
}

void cTag::szRW(std::string_view value) {
  const std::string word = UpperCase(modMain::TrimBlanks(value));
  if (word != "RO" && word != "RW") {
    RefuseAndNote(RangeRefused("RO / RW"));
  } else {
    StoreChecked(TagLine::Access, word);
  }
}

void cTag::SetFreeText(TagLine::Text text, std::string_view value) {
  line_.Set(text, value);
  bDataDirty_ = true;
}

std::string cTag::szComplete() const {
  std::string line;
  AppendComplete(line, modMain::OpenProject().nSaveTagsUppercase() == 1);
  return line;
}

void cTag::AppendComplete(std::string& line, bool upperCaseName) const {
  std::string_view complete = line_.Complete();
  if (upperCaseName && !complete.empty()) {
    line += UpperCase(szTag());
    complete.remove_prefix(szTag().size());
  }
  line += complete;
}

std::string cTag::szTagGridLine() const {
  std::string line;
  line.reserve(2 * szTag().size() + line_.Complete().size());  // a tag has a row as long as the grid is on show
  line += szTag();
  for (const std::string_view text :
       {szTag(), szData(), szRW(), szHystLB(), szHystUB(), szLB(), szUB(), szTest(), szComment()}) {
    line.append(1, '\t').append(text);
  }
  return line;
}

}  // namespace tavrin
