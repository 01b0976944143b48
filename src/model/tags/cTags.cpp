#include "model/tags/cTags.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

#include "model/NetworkSettings.h"
#include "model/cOPC.h"
#include "model/shared/AtExit.h"
#include "model/shared/IniAccess.h"
#include "model/shared/Messages.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modFiles.h"
#include "model/shared/modMain.h"
#include "model/tags/TagFileReader.h"
#include "model/tags/TagFileWriter.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Grid.h"

namespace tavrin {

namespace {

constexpr std::int32_t kGoodQuality = 192;

/// Widths of the columns from the first behind the key on; the comment behind them keeps its own. Only IPK devices have
/// a hysteresis.
using Widths = std::array<float, 8>;
constexpr Widths kWidths{3000, 1500, 1200, 0, 0, 0, 0, 1200};
constexpr Widths kIpkWidths{1800, 1200, 1200, 900, 900, 0, 0, 900};

void SetWidths(Grid& grid, const Widths& widths) {
  int col = 1;
  for (const float width : widths) grid.ColWidth(col++, width);
}

}  // namespace

void cTags::szFileName(std::string_view value) {
  if (value.empty()) {
    Refuse(EmptyRefused());
  } else {
    szFileName_ = value;
  }
}

std::string cTags::szFullName() const { return modMain::globals.gszProjectDir + szFileName_; }

std::uint32_t cTags::Find(std::string_view szName) {
  if (keysStale_) {
    keyFold_ = FoldOfKeys();
    keys_.Clear();
    keys_.Reserve(tags_.size());
    for (std::uint32_t i = 0; i < tags_.size(); ++i) keys_.Insert(HashName(keyFold_, tags_[i]->ListName()), i);
    keysStale_ = false;
  }
  return keys_.Find(HashName(keyFold_, szName),
                    [&](std::uint32_t i) { return SameName(keyFold_, tags_[i]->ListName(), szName); });
}

cTag* cTags::Tag(std::string_view szName) try {
  const std::uint32_t position = Find(szName);
  if (position == NameIndex::kNowhere) throw RuntimeError(ErrorNumber::InvalidCall);
  return tags_[position].get();
} catch (...) {
  modMain::Trap("cTags.Get_Tag : ");
  return nullptr;
}

bool cTags::QualityOK() const {
  return std::all_of(begin(), end(), [](const cTag& tag) { return tag.nQuality() == kGoodQuality; });
}

bool cTags::AnyDirty() const {
  return std::any_of(begin(), end(), [](const cTag& tag) { return tag.bDataDirty(); });
}

bool cTags::CheckUniqueTag(std::string_view szName) const {
  const bool exact = modMain::OpenProject().nCaseSensitive() == 1;
  const NameFold fold = exact ? FoldOfExactNames() : FoldOfNames();
  if (!exact) szName = modMain::TrimBlanks(szName);
  return std::none_of(begin(), end(), [&](const cTag& tag) { return SameName(fold, tag.szTag(), szName); });
}

void cTags::Remove(std::span<const std::string> names) try {
  std::unordered_map<std::string_view, std::size_t> wanted;
  for (const std::string& name : names) ++wanted[name];
  const auto removed = std::erase_if(tags_, [&](const auto& tag) {
    const auto found = wanted.find(tag->szTag());
    if (found == wanted.end() || found->second == 0) return false;
    --found->second;
    return true;
  });
  keysStale_ = keysStale_ || removed > 0;
} catch (...) {
  modMain::Trap("cTags.Remove : ");
}

bool cTags::AddItem(std::unique_ptr<cTag> tag) try {
  if (Find(tag->szTag()) != NameIndex::kNowhere) return false;
  Append(std::move(tag));
  return true;
} catch (...) {
  modMain::Trap("cTags.AddItem : ");
  return false;
}

void cTags::Append(std::unique_ptr<cTag> tag) {
  tag->inList_ = true;
  if (keysStale_) {
    tags_.push_back(std::move(tag));
    return;
  }
  keys_.Reserve(tags_.size() + 1);  // so that nothing can fail between list and index
  const std::uint32_t hash = HashName(keyFold_, tag->szTag());
  tags_.push_back(std::move(tag));
  keys_.Insert(hash, static_cast<std::uint32_t>(tags_.size() - 1));
}

void cTags::Refresh(std::int32_t nDeviceType, std::int32_t nPLCType) try {
  const std::string file = szFullName();
  if (!FileExists(file)) {
    modMain::ReadWarnings().AddWarning(WarningKind::Tag, szFileName_, TextAnd(201, file));
    return;
  }
  std::string content = modMain::Platform().files.ReadAll(file);
  TagFileReader(*this, nDeviceType, nPLCType).Read(content);
} catch (...) {
  modMain::Trap("cTags.Refresh : ");
}

bool cTags::Update() try {
  cWarnings& warnings = modMain::WriteWarnings();
  if (szFileName_.empty()) {
    warnings.AddWarning(WarningKind::Tag, szFileName_, TextAnd(217, szFileName_));
  } else if (modMain::globals.gszProjectDir.empty()) {
    warnings.AddWarning(WarningKind::Tag, szFileName_, TextAnd(214, ""));
  } else {
    const std::string file = szFullName();
    RemoveBeforeRewrite(file);
    WriteTags(*modMain::Platform().files.Create(file));
  }
  return true;
} catch (...) {
  modMain::Trap("cTags.Update : ");
  return false;
}

void cTags::Show(Grid& grid, std::int32_t nDeviceType) const try {
  const AtExit redraw([&] { grid.Redraw(true); });
  grid.Redraw(false);
  grid.Rows(1);
  grid.ColWidth(0, 0);
  if (!NetworkTypeName(nDeviceType).empty()) {
    SetWidths(grid, NetworkType{nDeviceType} == NetworkType::TcpIpk ? kIpkWidths : kWidths);
    for (const cTag& tag : *this) grid.AddItem(tag.szTagGridLine());
  }
  grid.AddItem("");
  grid.Select({0, 0});
} catch (...) {
  modMain::Trap("cTags.Show : ");
}

void cTags::WriteTags(OutputFile& file) {
  TagFileWriter writer(file, modMain::OpenProject().nSaveTagsUppercase() == 1);
  for (cTag& tag : *this) writer.Add(tag);
  writer.Finish();
}

}  // namespace tavrin
