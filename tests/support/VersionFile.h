#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavrin {

/// Little-endian bytes.
void AppendWord(std::string& bytes, std::uint32_t value);
void AppendDoubleWord(std::string& bytes, std::uint32_t value);

/// Numbers of the fixed block of a version resource, by their published names.
struct FixedVersion {
  std::uint32_t structureVersion = 0x00010000;
  std::uint32_t fileVersionMS = 0x00070000;
  std::uint32_t fileVersionLS = 0x00000002;
  std::uint32_t productVersionMS = 0x00070000;
  std::uint32_t productVersionLS = 0x00000002;
  std::uint32_t flagsMask = 0x3F;
  std::uint32_t flags = 0;
  std::uint32_t os = 0x40004;
  std::uint32_t type = 2;
  std::uint32_t subtype = 0;

  [[nodiscard]] std::string Bytes() const;
};

/// One block of a version resource with those below it.
struct VersionNode {
  std::string name;
  std::string value;  ///< bytes; of a text in UTF-16 those of its units, with the ending zero
  bool text = false;  ///< in UTF-16: the length counts units
  std::vector<VersionNode> children;
};

/// The value of a text in UTF-16, with the ending zero.
[[nodiscard]] std::string Utf16Bytes(std::u16string_view text);
[[nodiscard]] VersionNode TextNode(std::string_view name, std::u16string_view text);
[[nodiscard]] VersionNode NarrowTextNode(std::string_view name, std::string_view text);

/// The bytes of a resource: as 32-bit and 64-bit programs have it, and as 16-bit programs do.
[[nodiscard]] std::string WideResource(const VersionNode& root);
[[nodiscard]] std::string NarrowResource(const VersionNode& root);

/// A usual resource: a fixed block, one table of texts and the translation that names it.
struct VersionTexts {
  FixedVersion fixed{};
  std::string table = "040904E4";
  std::vector<std::pair<std::string, std::u16string>> strings{};
  std::vector<std::uint32_t> translations{0x04E40409};  ///< language in the lower word, code page in the upper one
};
[[nodiscard]] VersionNode VersionTree(const VersionTexts& texts);

struct ResourceInLanguage {
  std::uint32_t language;
  std::string bytes;
};

/// How an executable file is laid out.
struct PeLayout {
  bool is64 = false;
  std::uint32_t header = 0x80;            ///< offset of the "PE" signature
  std::uint32_t sectionsBefore = 1;       ///< of code, in front of the resources
  std::uint32_t address = 0x5000;         ///< of the resources in memory
  std::uint32_t dataSection = 0;          ///< other than 0: the address of a section of its own for the data
  std::uint32_t optionalHeaderExtra = 0;  ///< unused bytes between the optional header and the sections
  std::uint32_t namedEntries = 0;         ///< entries with a name in front of the numbered ones, in each directory
};

/// An executable of 32 or 64 bits with version resources, and nothing that could run.
[[nodiscard]] std::string PeFile(const std::vector<ResourceInLanguage>& resources, const PeLayout& layout = {});
/// A 16-bit executable with one version resource.
[[nodiscard]] std::string NeFile(const std::string& resource);

/// Overwrites a number in a file.
void PutWord(std::string& file, std::size_t at, std::uint32_t value);
void PutDoubleWord(std::string& file, std::size_t at, std::uint32_t value);

}  // namespace tavrin
