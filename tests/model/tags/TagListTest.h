#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/tags/cTags.h"
#include "support/ProjectTest.h"

namespace tavrin {

/// A tag list with the file tags.csv in the directory of the project.
class TagListTest : public ProjectTest {
 protected:
  TagListTest() { list.szFileName("tags.csv"); }

  /// Writes the file as it is given and reads it into the list, of an MPI device with an S7.
  void Read(std::string_view content) {
    directory.Write("tags.csv", content);
    list.Refresh(0, 1);
  }

  /// Adds a tag of that name; the result of AddItem.
  bool Add(std::string_view name) {
    auto tag = std::make_unique<cTag>();
    if (!name.empty()) tag->szTag(name);
    return list.AddItem(std::move(tag));
  }

  /// The file's bytes after a save.
  std::string Written() {
    EXPECT_TRUE(list.Update());
    return directory.Read("tags.csv");
  }

  /// The names of the tags in their order.
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const cTag& tag : list) names.emplace_back(tag.szTag());
    return names;
  }
  /// All texts of a tag but the name: data, access, bounds, test value and comment, joined by "|".
  [[nodiscard]] static std::string TextsOf(const cTag& tag) {
    std::string line(tag.szData());
    for (const std::string_view text :
         {tag.szRW(), tag.szHystLB(), tag.szHystUB(), tag.szLB(), tag.szUB(), tag.szTest(), tag.szComment()}) {
      line.append(1, '|').append(text);
    }
    return line;
  }
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> lines;
    for (const cTag& tag : list) lines.push_back(TextsOf(tag));
    return lines;
  }

  static std::string Warned(const std::string& text) { return "Tag|tags.csv|" + text; }

  cTags list;
};

}  // namespace tavrin
