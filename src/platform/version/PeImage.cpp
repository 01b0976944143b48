#include "platform/version/PeImage.h"

#include <array>
#include <string>
#include <vector>

namespace tavrin {
namespace {

// Microsoft's "PE Format": offsets in the records and the numbers that matter here.
constexpr std::size_t kFileHeaderSize = 24;  // with the signature in front
constexpr std::size_t kSectionSize = 40;
constexpr std::size_t kDirectorySize = 16;
constexpr std::size_t kEntrySize = 8;
constexpr std::size_t kDataEntrySize = 16;
constexpr std::uint16_t kMagic32 = 0x10B;
constexpr std::uint16_t kMagic64 = 0x20B;
constexpr std::size_t kTables32 = 96;  // of the data directories in the optional header
constexpr std::size_t kTables64 = 112;
constexpr std::uint32_t kResourceTable = 2;
constexpr std::uint32_t kSubdirectory = 0x80000000;
constexpr std::uint32_t kTypeVersion = 16;
constexpr std::uint32_t kNameVersion = 1;
constexpr std::uint32_t kNeutral = 0;
constexpr std::uint32_t kUsEnglish = 0x0409;

/// What the headers say.
struct Headers {
  std::uint32_t resources = 0;  ///< address of the resource directories
  std::uint32_t size = 0;       ///< of all headers; addresses below it are offsets
  std::string sections;
};

struct Entry {
  std::uint32_t id;
  std::uint32_t target;
};

std::optional<Headers> ReadHeaders(InputFile& file, std::uint64_t header) {
  const auto fileHeader = ReadExactly(file, header, kFileHeaderSize);
  const std::uint64_t optional = header + kFileHeaderSize;
  const auto start = ReadExactly(file, optional, kTables32);
  if (!fileHeader || !start) return std::nullopt;
  const std::uint16_t magic = WordAt(*start, 0);
  if (magic != kMagic32 && magic != kMagic64) return std::nullopt;
  const std::size_t tables = magic == kMagic32 ? kTables32 : kTables64;
  const auto tail = ReadExactly(file, optional + tables - 4, 4 + 8 * (kResourceTable + 1));
  if (!tail || DoubleWordAt(*tail, 0) <= kResourceTable) return std::nullopt;
  auto sections = ReadExactly(file, optional + WordAt(*fileHeader, 20), kSectionSize * WordAt(*fileHeader, 6));
  if (!sections) return std::nullopt;
  return Headers{DoubleWordAt(*tail, 4 + 8 * kResourceTable), DoubleWordAt(*start, 60), std::move(*sections)};
}

/// Where an address of the loaded program lies in the file.
std::optional<std::uint64_t> OffsetOf(const Headers& headers, std::uint32_t address) {
  if (address < headers.size) return address;
  for (std::size_t at = 0; at < headers.sections.size(); at += kSectionSize) {
    const std::uint32_t begin = DoubleWordAt(headers.sections, at + 12);
    const std::uint32_t size = DoubleWordAt(headers.sections, at + 16);
    if (address >= begin && address - begin < size) {
      return std::uint64_t{DoubleWordAt(headers.sections, at + 20)} + (address - begin);
    }
  }
  return std::nullopt;
}

/// The numbered entries of a directory; those with a name come before them and are nobody's here.
std::vector<Entry> EntriesOf(InputFile& file, std::uint64_t directory) {
  std::vector<Entry> entries;
  const auto head = ReadExactly(file, directory, kDirectorySize);
  if (!head) return entries;
  const std::uint64_t first = directory + kDirectorySize + kEntrySize * WordAt(*head, 12);
  const auto table = ReadExactly(file, first, kEntrySize * WordAt(*head, 14));
  for (std::size_t at = 0; table && at < table->size(); at += kEntrySize) {
    entries.push_back({DoubleWordAt(*table, at), DoubleWordAt(*table, at + 4)});
  }
  return entries;
}

const Entry* FindEntry(const std::vector<Entry>& entries, std::uint32_t id) {
  for (const Entry& entry : entries) {
    if (entry.id == id) return &entry;
  }
  return nullptr;
}

/// The offset of the directory below the entry with a number.
std::optional<std::uint64_t> Descend(InputFile& file, std::uint64_t root, std::uint64_t directory, std::uint32_t id) {
  const std::vector<Entry> entries = EntriesOf(file, directory);
  const Entry* entry = FindEntry(entries, id);
  if (entry == nullptr || (entry->target & kSubdirectory) == 0) return std::nullopt;
  return root + (entry->target & ~kSubdirectory);
}

/// What a user should read: what is for everybody, his own, what most can read, and whatever there is.
const Entry* ChooseLanguage(const std::vector<Entry>& entries, int language) {
  for (const std::uint32_t id : {kNeutral, static_cast<std::uint32_t>(language), kUsEnglish}) {
    if (const Entry* entry = FindEntry(entries, id)) return entry;
  }
  return entries.empty() ? nullptr : &entries.front();
}

std::optional<FileRange> DataOf(InputFile& file, const Headers& headers, std::uint64_t entry) {
  const auto record = ReadExactly(file, entry, kDataEntrySize);
  const auto offset = record ? OffsetOf(headers, DoubleWordAt(*record, 0)) : std::nullopt;
  if (!offset) return std::nullopt;
  return FileRange{*offset, DoubleWordAt(*record, 4)};
}

}  // namespace

std::optional<FileRange> FindVersionInPe(InputFile& file, std::uint64_t header, int language) {
  const std::optional<Headers> headers = ReadHeaders(file, header);
  if (!headers || headers->resources == 0) return std::nullopt;
  const auto root = OffsetOf(*headers, headers->resources);
  const auto names = root ? Descend(file, *root, *root, kTypeVersion) : std::nullopt;
  const auto languages = names ? Descend(file, *root, *names, kNameVersion) : std::nullopt;
  if (!languages) return std::nullopt;
  const std::vector<Entry> entries = EntriesOf(file, *languages);
  const Entry* chosen = ChooseLanguage(entries, language);
  if (chosen == nullptr || (chosen->target & kSubdirectory) != 0) return std::nullopt;
  return DataOf(file, *headers, *root + chosen->target);
}

}  // namespace tavrin
