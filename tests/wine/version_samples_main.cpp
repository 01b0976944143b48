// Writes small executables with version resources into a folder, each named by what is special about it. Those named
// damaged_... must read like files without a resource or with what is left of it; of the others the platform reads the
// same as the program. Where they come from: `version_samples fuzz/corpus/version`.
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "support/VersionFile.h"

namespace tavrin {
namespace {

struct Sample {
  std::string name;
  std::string bytes;
};

VersionTexts Texts() {
  VersionTexts texts;
  texts.strings = {{"CompanyName", u"Tavrin"}, {"FileVersion", u"7.0.0.2"}, {"ProductName", u"Gr\u00F6\u00DFe"}};
  return texts;
}

std::string InOneLanguage(const VersionNode& tree, const PeLayout& layout = {}) {
  return PeFile({{0x409, WideResource(tree)}}, layout);
}

/// A usual resource whose table of texts has been changed.
std::string WithTable(const std::function<void(std::vector<VersionNode>& strings)>& change) {
  VersionNode tree = VersionTree(Texts());
  change(tree.children[0].children[0].children);
  return InOneLanguage(tree);
}

/// A usual resource whose tree has been changed.
std::string WithTree(const std::function<void(VersionNode& tree)>& change) {
  VersionNode tree = VersionTree(Texts());
  change(tree);
  return InOneLanguage(tree);
}

/// A usual file, changed behind the offset of its resource.
std::string WithResource(const std::function<void(std::string& file, std::size_t resource)>& change) {
  std::string file = InOneLanguage(VersionTree(Texts()));
  const std::size_t name = file.find(Utf16Bytes(u"VS_VERSION_INFO"));
  change(file, name - 6);
  return file;
}

std::string InLanguages(const std::vector<std::uint32_t>& languages) {
  std::vector<ResourceInLanguage> resources;
  for (const std::uint32_t language : languages) {
    VersionTexts texts = Texts();
    texts.strings.emplace_back("Comments", language == 0 ? u"neutral" : language == 0x409 ? u"English" : u"other");
    resources.push_back({language, WideResource(VersionTree(texts))});
  }
  return PeFile(resources);
}

VersionNode NarrowTree() {
  VersionNode tree = VersionTree(Texts());
  tree.children[0].children[0].children = {NarrowTextNode("CompanyName", "Tavrin"), NarrowTextNode("ProductName",
                                                                                                   "Gr\xF6\xDF"
                                                                                                   "e")};
  return tree;
}

std::vector<Sample> Layouts() {
  const VersionNode tree = VersionTree(Texts());
  return {{"plain32", InOneLanguage(tree)},
          {"plain64", InOneLanguage(tree, {.is64 = true})},
          {"resources_first", InOneLanguage(tree, {.sectionsBefore = 0, .address = 0x1000})},
          {"data_behind", InOneLanguage(tree, {.dataSection = 0x8000})},
          {"data_in_front", InOneLanguage(tree, {.is64 = true, .address = 0x9000, .dataSection = 0x4000})},
          {"late_header", InOneLanguage(tree, {.header = 0x400})},
          {"named_entries", InOneLanguage(tree, {.namedEntries = 3})},
          {"three_languages", InLanguages({0, 0x407, 0x409})},
          {"two_languages", InLanguages({0x407, 0x409})},
          {"foreign_languages", InLanguages({0x407, 0x40C})},
          {"ne", NeFile(NarrowResource(NarrowTree()))},
          {"narrow_in_pe", PeFile({{0x409, NarrowResource(NarrowTree())}})}};
}

std::vector<Sample> Contents() {
  return {
      {"polish", WithTable([](auto& strings) {
         strings[0] = TextNode("CompanyName", u"Za\u017C\u00F3\u0142\u0107 \u0416 \u20AC \u2192");
       })},
      {"duplicates", WithTable([](auto& strings) {
         strings.insert(strings.begin(), TextNode("ProductName", u""));
         strings.push_back(TextNode("CompanyName", u"second"));
       })},
      {"name_case", WithTable([](auto& strings) { strings[0].name = "cOMPANYnAME"; })},
      {"longer_name", WithTable([](auto& strings) {
         strings.insert(strings.begin(), TextNode("CompanyNames", u"longer"));
         strings.insert(strings.begin(), TextNode("Company", u"shorter"));
       })},
      {"binary_text", WithTable([](auto& strings) { strings[0].text = false; })},
      {"no_ending_zero", WithTable([](auto& strings) { strings[0].value.resize(strings[0].value.size() - 2); })},
      {"zero_inside", WithTable([](auto& strings) { strings[0].value = Utf16Bytes(std::u16string_view(u"a\0b", 3)); })},
      {"two_tables", WithTree([](VersionNode& tree) {
         tree.children.insert(tree.children.begin(), VersionNode{"StringFileInfo", {}, true, {}});
       })},
      {"english_table",
       WithTree([](VersionNode& tree) { tree.children[1].children[0].value = std::string("\x07\x04\xE4\x04", 4); })},
      {"no_translation", WithTree([](VersionNode& tree) { tree.children.pop_back(); })},
      {"text_translation", WithTree([](VersionNode& tree) { tree.children[1].children[0].text = true; })},
      {"no_fixed_block", WithTree([](VersionNode& tree) { tree.value.clear(); })},
      {"other_root_name", WithTree([](VersionNode& tree) { tree.name = "VS_OTHER_INFO"; })}};
}

/// A resource of children of four bytes, each with a name that goes on through all that follow.
std::string EndlessNames() {
  std::string bytes = WideResource({"VS_VERSION_INFO", FixedVersion{}.Bytes(), false, {}});
  while (bytes.size() < 65'532) {
    AppendWord(bytes, 4);
    AppendWord(bytes, 'S');
  }
  PutWord(bytes, 0, 0xFFFF);
  return bytes;
}

/// A file that ends where its resource does, which is before the rounded size that its directory tells.
std::string EndsWith(std::string file, const std::string& resource) {
  file.resize(file.rfind(resource) + resource.size());
  return file;
}

std::vector<Sample> Damages() {
  const std::string plain = InOneLanguage(VersionTree(Texts()));
  const std::string narrow = NarrowResource(NarrowTree());
  return {
      {"damaged_translation", WithTree([](VersionNode& tree) { tree.children[1].children[0].value.resize(2); })},
      {"damaged_length_too_large", WithResource([](std::string& file, std::size_t at) { PutWord(file, at, 0xFFFF); })},
      {"damaged_length_a_bit_too_large", WithResource([](std::string& file, std::size_t at) {
         PutWord(file, at, static_cast<unsigned char>(file[at]) + 256U * static_cast<unsigned char>(file[at + 1]) + 4);
       })},
      {"damaged_length_zero", WithResource([](std::string& file, std::size_t at) { PutWord(file, at, 0); })},
      {"damaged_length_small", WithResource([](std::string& file, std::size_t at) { PutWord(file, at, 0x30); })},
      {"damaged_value_too_large",
       WithResource([](std::string& file, std::size_t at) { PutWord(file, at + 2, 0xFFFF); })},
      {"child_length_zero", WithResource([](std::string& file, std::size_t at) { PutWord(file, at + 92, 0); })},
      {"child_length_large", WithResource([](std::string& file, std::size_t at) { PutWord(file, at + 92, 0xFFFF); })},
      {"endless_names", PeFile({{0x409, EndlessNames()}})},
      {"ne_rounded_size", EndsWith(NeFile(narrow), narrow)},
      {"damaged_cut_in_resource", plain.substr(0, plain.size() - 0x180)},
      {"damaged_cut_in_directory", plain.substr(0, 0x420)},
      {"damaged_cut_in_headers", plain.substr(0, 0x90)},
      {"damaged_dos_only", plain.substr(0, 0x80)},
      {"damaged_header_offset",
       WithResource([](std::string& file, std::size_t) { PutDoubleWord(file, 60, 0xFFFFFFF0); })},
      {"damaged_circle", WithResource([](std::string& file, std::size_t) {
         PutDoubleWord(file, 0x400 + 16 + 4, 0x80000000);  // the type's directory is the first one again
       })},
      {"damaged_offset", WithResource([](std::string& file, std::size_t) { PutDoubleWord(file, 0x414, 0xFFFFFFFF); })}};
}

}  // namespace
}  // namespace tavrin

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "Usage: version_samples FOLDER\n";
    return 2;
  }
  for (const auto& samples : {tavrin::Layouts(), tavrin::Contents(), tavrin::Damages()}) {
    for (const tavrin::Sample& sample : samples) {
      std::ofstream file(std::string(arguments[1]) + "/" + sample.name + ".bin", std::ios::binary);
      file << sample.bytes;
      if (!file.flush()) return 1;
    }
  }
  return 0;
}
