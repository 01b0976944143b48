#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sim/SimItem.h"
#include "sim/TestPartner.h"

namespace tavrin {

/// What became of a write.
enum class Taken { Yes, NotConnected, NotWritable, WrongLength, OutOfBounds };

/// One controller behind the simulated server. While it is not connected, its items are bad and take no write, but for
/// the reserved tags of its partner in a test run; from that one's first command on it answers as if it were connected.
class SimDevice {
 public:
  using Items = std::vector<std::unique_ptr<SimItem>>;

  /// @param interval between two steps of a moving value @param since when the device came to be
  SimDevice(std::string name, Moment interval, Moment since)
      : name_(std::move(name)), interval_(interval), since_(since) {}
  SimDevice(const SimDevice&) = delete;
  SimDevice& operator=(const SimDevice&) = delete;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] Moment Interval() const { return interval_; }
  [[nodiscard]] const Items& ItemList() const { return items_; }

  void Connected(bool value, Moment now);
  /// Hands its items out; others are to follow.
  [[nodiscard]] Items TakeItems() { return std::move(items_); }
  void GiveItems(Items items, Moment now);

  /// @param item one of this device's, here and below
  [[nodiscard]] Reading Read(SimItem& item, Moment now) const;
  [[nodiscard]] Taken Write(SimItem& item, Values values, Moment now);

 private:
  [[nodiscard]] bool Answers(const SimItem& item) const;

  std::string name_;
  Moment interval_;
  Moment since_;
  bool connected_ = false;
  Items items_;
  TestPartner partner_;
};

}  // namespace tavrin
