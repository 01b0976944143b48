#include "model/tags/cTags.h"

#include <algorithm>
#include <utility>

#include "model/cOPC.h"
#include "model/shared/IniAccess.h"
#include "model/shared/Messages.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modFiles.h"
#include "model/shared/modMain.h"
#include "model/tags/TagFileReader.h"
#include "model/tags/TagFileWriter.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {
constexpr std::int32_t kGoodQuality = 192;
}

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

void cTags::Remove(std::string_view szName) try {
  const auto tag = std::find_if(tags_.begin(), tags_.end(), [&](const auto& item) { return item->szTag() == szName; });
  if (tag == tags_.end()) return;
  tags_.erase(tag);
  keysStale_ = true;
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

void cTags::WriteTags(OutputFile& file) {
  TagFileWriter writer(file, modMain::OpenProject().nSaveTagsUppercase() == 1);
  for (cTag& tag : *this) writer.Add(tag);
  writer.Finish();
}

}  // namespace tavrin
