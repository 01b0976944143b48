#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/tags/NameIndex.h"

namespace tavrin {

class Grid;
class cDevice;
class cTag;

/// The device under test and its tags.
class TestDevice {
 public:
  /// @param device stays as it is while this object is in use
  void Take(cDevice& device);

  /// Empty before a device was taken.
  [[nodiscard]] const std::string& Name() const { return name_; }
  /// In the order of their list.
  [[nodiscard]] const std::vector<cTag*>& Tags() const { return tags_; }
  /// True when the quality of every tag is good, so also without tags.
  [[nodiscard]] bool QualityOK() const;
  /// The tag of a name, nullptr when there is none: a server may tell of items that the device does not have.
  [[nodiscard]] cTag* Tag(std::string_view name) const;
  /// Forgets what the server has said, so that the next wait for good quality is a real one.
  void ClearQuality() const;
  /// Fills the grid: a row a tag, the last column empty.
  void Show(Grid& grid) const;

 private:
  cDevice* device_ = nullptr;
  std::string name_;
  std::vector<cTag*> tags_;
  NameFold fold_;
  NameIndex names_;  // of tags_
};

}  // namespace tavrin
