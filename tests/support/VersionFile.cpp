#include "support/VersionFile.h"

#include <algorithm>

namespace tavrin {
namespace {

constexpr std::uint32_t kFileAlignment = 0x200;
constexpr std::uint32_t kSubdirectory = 0x80000000;

void Pad(std::string& bytes, std::size_t alignment) {
  bytes.resize((bytes.size() + alignment - 1) / alignment * alignment, '\0');
}

std::uint32_t Size32(const std::string& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

/// Header, name, value and children of one block, without padding behind it.
std::string BlockBytes(const VersionNode& node, bool wide) {
  std::string bytes;
  AppendWord(bytes, 0);
  AppendWord(bytes, static_cast<std::uint32_t>(wide && node.text ? node.value.size() / 2 : node.value.size()));
  if (wide) AppendWord(bytes, node.text ? 1 : 0);
  for (const char letter : node.name + '\0') {
    if (wide) AppendWord(bytes, static_cast<unsigned char>(letter));
    if (!wide) bytes += letter;
  }
  if (!node.value.empty() || !node.children.empty()) Pad(bytes, 4);
  bytes += node.value;
  for (const VersionNode& child : node.children) {
    Pad(bytes, 4);
    bytes += BlockBytes(child, wide);
  }
  PutWord(bytes, 0, Size32(bytes));
  return bytes;
}

/// A resource directory whose numbered entries follow, and the named ones in front of them.
void AppendDirectory(std::string& bytes, std::uint32_t named, std::size_t numbered) {
  bytes.append(12, '\0');
  AppendWord(bytes, named);
  AppendWord(bytes, static_cast<std::uint32_t>(numbered));
  for (std::uint32_t entry = 0; entry < named; ++entry) {
    AppendDoubleWord(bytes, kSubdirectory);
    AppendDoubleWord(bytes, 0);
  }
}

/// Offset of the level below a directory with one numbered entry.
std::uint32_t Below(const std::string& bytes) { return Size32(bytes) + 8; }

/// The directories of type, name and language, the records of the data, and, unless it has an address of its own, the
/// data.
std::string ResourceSection(const std::vector<ResourceInLanguage>& resources, const PeLayout& layout,
                            std::string& data) {
  std::string bytes;
  for (const std::uint32_t id : {16U, 1U}) {
    AppendDirectory(bytes, layout.namedEntries, 1);
    AppendDoubleWord(bytes, id);
    AppendDoubleWord(bytes, kSubdirectory | (Below(bytes) - 4));
  }
  AppendDirectory(bytes, layout.namedEntries, resources.size());
  const std::uint32_t records = Size32(bytes) + 8 * static_cast<std::uint32_t>(resources.size());
  for (std::uint32_t index = 0; index < resources.size(); ++index) {
    AppendDoubleWord(bytes, resources[index].language);
    AppendDoubleWord(bytes, records + 16 * index);
  }
  const std::uint32_t behind = records + 16 * static_cast<std::uint32_t>(resources.size());
  const std::uint32_t base = layout.dataSection != 0 ? layout.dataSection : layout.address + behind;
  for (const ResourceInLanguage& resource : resources) {
    AppendDoubleWord(bytes, base + Size32(data));
    AppendDoubleWord(bytes, Size32(resource.bytes));
    bytes.append(8, '\0');
    data += resource.bytes;
    Pad(data, 4);
  }
  if (layout.dataSection == 0) bytes += data;
  return bytes;
}

struct Section {
  std::uint32_t address;
  std::string bytes;
};

void AppendSectionHeader(std::string& file, const Section& section, std::uint32_t offset) {
  file.append(8, '.');
  AppendDoubleWord(file, Size32(section.bytes));
  AppendDoubleWord(file, section.address);
  AppendDoubleWord(file, Size32(section.bytes));
  AppendDoubleWord(file, offset);
  file.append(12, '\0');
  AppendDoubleWord(file, 0x40000040);
}

std::vector<Section> SectionsOf(const std::vector<ResourceInLanguage>& resources, const PeLayout& layout) {
  std::vector<Section> sections;
  for (std::uint32_t index = 0; index < layout.sectionsBefore; ++index) {
    sections.push_back({0x1000 * (index + 1), std::string(0x30, '\xCC')});
  }
  std::string data;
  sections.push_back({layout.address, ResourceSection(resources, layout, data)});
  if (layout.dataSection != 0) sections.push_back({layout.dataSection, data});
  std::sort(sections.begin(), sections.end(),
            [](const Section& left, const Section& right) { return left.address < right.address; });
  for (Section& section : sections) Pad(section.bytes, kFileAlignment);
  return sections;
}

std::string OptionalHeader(const PeLayout& layout, std::uint32_t headers, std::uint32_t image) {
  std::string bytes(layout.is64 ? 240 : 224, '\0');
  PutWord(bytes, 0, layout.is64 ? 0x20B : 0x10B);
  if (layout.is64) PutDoubleWord(bytes, 24, 0x10000000);
  if (!layout.is64) PutDoubleWord(bytes, 28, 0x10000000);
  PutDoubleWord(bytes, 32, 0x1000);
  PutDoubleWord(bytes, 36, kFileAlignment);
  PutWord(bytes, 40, 4);
  PutWord(bytes, 48, 4);
  PutDoubleWord(bytes, 56, image);
  PutDoubleWord(bytes, 60, headers);
  PutWord(bytes, 68, 2);
  const std::size_t tables = layout.is64 ? 112 : 96;
  PutDoubleWord(bytes, tables - 4, 16);
  PutDoubleWord(bytes, tables + 16, layout.address);
  PutDoubleWord(bytes, tables + 20, 0x1000);
  return bytes;
}

std::string DosHeader(std::uint32_t header) {
  std::string file("MZ");
  file.resize(header, '\0');
  PutDoubleWord(file, 60, header);
  return file;
}

}  // namespace

void AppendWord(std::string& bytes, std::uint32_t value) {
  for (unsigned shift = 0; shift < 16; shift += 8) bytes += static_cast<char>((value >> shift) & 0xFFU);
}

void AppendDoubleWord(std::string& bytes, std::uint32_t value) {
  AppendWord(bytes, value);
  AppendWord(bytes, value >> 16);
}

void PutWord(std::string& file, std::size_t at, std::uint32_t value) {
  std::string bytes;
  AppendWord(bytes, value);
  file.replace(at, bytes.size(), bytes);
}

void PutDoubleWord(std::string& file, std::size_t at, std::uint32_t value) {
  std::string bytes;
  AppendDoubleWord(bytes, value);
  file.replace(at, bytes.size(), bytes);
}

std::string FixedVersion::Bytes() const {
  std::string bytes;
  for (const std::uint32_t number : {0xFEEF04BD, structureVersion, fileVersionMS, fileVersionLS, productVersionMS,
                                     productVersionLS, flagsMask, flags, os, type, subtype, 0U, 0U}) {
    AppendDoubleWord(bytes, number);
  }
  return bytes;
}

std::string Utf16Bytes(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) AppendWord(bytes, unit);
  AppendWord(bytes, 0);
  return bytes;
}

VersionNode TextNode(std::string_view name, std::u16string_view text) {
  return {std::string(name), Utf16Bytes(text), true, {}};
}

VersionNode NarrowTextNode(std::string_view name, std::string_view text) {
  return {std::string(name), std::string(text) + '\0', false, {}};
}

std::string WideResource(const VersionNode& root) { return BlockBytes(root, true); }

std::string NarrowResource(const VersionNode& root) { return BlockBytes(root, false); }

VersionNode VersionTree(const VersionTexts& texts) {
  VersionNode table{texts.table, {}, true, {}};
  for (const auto& [name, text] : texts.strings) table.children.push_back(TextNode(name, text));
  VersionNode translation{"Translation", {}, false, {}};
  for (const std::uint32_t entry : texts.translations) AppendDoubleWord(translation.value, entry);
  return {"VS_VERSION_INFO",
          texts.fixed.Bytes(),
          false,
          {{"StringFileInfo", {}, true, {table}}, {"VarFileInfo", {}, true, {translation}}}};
}

std::string PeFile(const std::vector<ResourceInLanguage>& resources, const PeLayout& layout) {
  const std::vector<Section> sections = SectionsOf(resources, layout);
  std::string file = DosHeader(layout.header);
  file += std::string_view("PE\0\0", 4);
  AppendWord(file, layout.is64 ? 0x8664 : 0x14C);
  AppendWord(file, static_cast<std::uint32_t>(sections.size()));
  file.append(12, '\0');
  const std::uint32_t optional = (layout.is64 ? 240U : 224U) + layout.optionalHeaderExtra;
  AppendWord(file, optional);
  AppendWord(file, layout.is64 ? 0x2022 : 0x2102);
  const std::uint32_t exact = Size32(file) + optional + 40 * static_cast<std::uint32_t>(sections.size());
  const std::uint32_t headers = (exact + kFileAlignment - 1) / kFileAlignment * kFileAlignment;
  file += OptionalHeader(layout, headers, (sections.back().address + 0x1FFF) & ~0xFFFU);
  file.append(layout.optionalHeaderExtra, '\0');
  std::uint32_t offset = headers;
  for (const Section& section : sections) {
    AppendSectionHeader(file, section, offset);
    offset += Size32(section.bytes);
  }
  Pad(file, kFileAlignment);
  for (const Section& section : sections) file += section.bytes;
  return file;
}

std::string NeFile(const std::string& resource) {
  constexpr std::uint32_t kHeader = 0x40;
  constexpr std::uint32_t kTable = 0x40;  // from the header
  constexpr std::uint32_t kShift = 4;
  constexpr std::uint32_t kData = 0x100;
  std::string file = DosHeader(kHeader) + "NE";
  file.resize(kHeader + kTable, '\0');
  PutWord(file, kHeader + 0x24, kTable);
  AppendWord(file, kShift);
  const auto type = [&file](std::uint32_t id) {
    AppendWord(file, 0x8000 | id);
    AppendWord(file, 1);
    AppendDoubleWord(file, 0);
  };
  const auto name = [&file](std::uint32_t offset, std::uint32_t size, std::uint32_t id) {
    AppendWord(file, offset >> kShift);
    AppendWord(file, (size + 15) >> kShift);
    AppendWord(file, 0x0C50);
    AppendWord(file, 0x8000 | id);
    AppendDoubleWord(file, 0);
  };
  type(3);
  name(kData, 16, 1);
  type(16);
  name(kData + 16, Size32(resource), 1);
  AppendWord(file, 0);
  PutWord(file, kHeader + 0x26, Size32(file) - kHeader);
  file.append(1, '\0');
  file.resize(kData + 16, '\0');
  file += resource;
  Pad(file, 16);
  return file;
}

}  // namespace tavrin
