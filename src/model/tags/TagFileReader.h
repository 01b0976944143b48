#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "model/tags/NameIndex.h"
#include "model/tags/TagLine.h"

namespace tavrin {

class cTag;
class cTags;

/// Reads the lines of a tag file into a list. One tag a line: name;data;RW and then optional fields, each a keyword
/// (TagLine.h) and its text. Nothing is quoted, there are no comments. A bad line gives read warnings and in most
/// cases still a tag, so that what the user sees in the list is what he finds in the file.
class TagFileReader {
 public:
  /// @param nDeviceType, nPLCType of the device that the tags belong to: the syntax of a source depends on them
  TagFileReader(cTags& list, std::int32_t nDeviceType, std::int32_t nPLCType);

  /// @param content the whole file; its tabs are turned into blanks
  void Read(std::string& content);

 private:
  void MakeRoom(std::string_view content);
  void ReadLine(std::string_view line);
  /// @return true when the tag got the name and no tag of the list has it
  bool ReadName(std::string_view field, cTag& tag, TagLine::Views& texts);
  void ReadData(std::string_view field, cTag& tag, TagLine::Views& texts);
  void ReadAccess(std::string_view field, cTag& tag, TagLine::Views& texts);
  static void ReadOptional(std::string_view field, TagLine::Views& texts);

  /// True when no tag that is in the list by now has the name; leaves what was
  /// looked for in asked_ and nameHash_.
  [[nodiscard]] bool IsUnique(std::string_view name);
  void NoteName(std::uint32_t position);
  /// @param nameIsNew what ReadName gave
  void AddTag(std::unique_ptr<cTag> tag, bool nameIsNew);

  /// Warns of the line for the reason of a text number; 0 is no reason.
  void WarnOfLine(std::int32_t textNumber);

  cTags& list_;
  std::int32_t nDeviceType_;
  std::int32_t nPLCType_;
  std::int32_t nCaseSensitive_;
  NameFold fold_;    // which names are the same in this project
  NameIndex names_;  // positions in the list, one for each different name
  std::string_view line_;
  std::uint32_t nameHash_ = 0;
  std::string asked_;
  std::string name_;  // kept between lines for their memory
  std::string data_;
};

}  // namespace tavrin
