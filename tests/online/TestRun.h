#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/cDevice.h"
#include "online/OnlineTest.h"
#include "online/frmTest.h"

namespace tavrin {

/// The window of the test run on the device Press of the network Line, with the tags COMMAND, RESULT, RESULTARRAY,
/// Level (set value 5) and Idle (none), and a LOG folder.
class TestRun : public OnlineTest {
 protected:
  TestRun() {
    std::filesystem::create_directories(LogFolder());
    cNetwork& line = AddNetwork(NetworkType::TcpRw, "Line");
    cDevice& press = AddDevice(line, "Press");
    for (const char* name : {"COMMAND", "RESULT", "RESULTARRAY"}) AddTag(press, name);
    AddTag(press, "Level", "5");
    AddTag(press, "Idle");
  }

  static cTag& AddTag(cDevice& device, const std::string& name, const std::string& setValue = {}) {
    auto made = std::make_unique<cTag>();
    cTag& tag = *made;
    tag.szTag(name);
    tag.szTest(setValue);
    device.Tags().AddItem(std::move(made));
    return tag;
  }
  [[nodiscard]] cTag& Tag(const std::string& name) { return *Device(1, 1).Tags().Tag(name); }
  [[nodiscard]] std::string LogFolder() const { return services.applicationDirectory + "/LOG"; }

  /// Loads the window and forgets what that has said to the server.
  frmTest& Open() {
    window = std::make_unique<frmTest>();
    window->Form_Load();
    window->Show();
    static_cast<void>(server.TakeLog());
    return *window;
  }
  void Tick(int times = 1) const {
    for (int i = 0; i < times; ++i) window->Timer1.Elapse();
  }
  /// Starts the clock and ticks up to the step.
  void TickTo(std::int32_t step) const {
    if (window->cmdStart.Enabled()) window->cmdStart.UserClick();
    for (int i = 0; i < 10 && window->cycle.Step() != step; ++i) Tick();
    ASSERT_EQ(window->cycle.Step(), step);
  }
  /// The server tells a good value of every tag.
  void AllGood() const {
    for (const cTag* const tag : window->device.Tags()) {
      server.Push("Press/" + std::string(tag->szTag()), Number(1));
    }
  }
  /// The lines of the protocol, without their ends.
  [[nodiscard]] std::vector<std::string> Protocol() const {
    std::vector<std::string> lines;
    if (!directory.Has("app/LOG/TESTPROT.TXT")) return lines;
    const std::string text = directory.Read("app/LOG/TESTPROT.TXT");
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t end = text.find("\r\n", begin);
      lines.push_back(text.substr(begin, end - begin));
      begin = end == std::string::npos ? end : end + 2;
    }
    return lines;
  }
  /// The labels of the protocol's lines, oldest first.
  [[nodiscard]] std::vector<std::string> Steps() const {
    std::vector<std::string> labels;
    for (const std::string& line : Protocol()) labels.push_back(line.substr(line.rfind('/') + 1));
    return labels;
  }
  [[nodiscard]] std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (int row = 1; row < window->vsgTest.Rows(); ++row) rows.push_back(window->vsgTest.RowText(row));
    return rows;
  }

  std::unique_ptr<frmTest> window;
};

}  // namespace tavrin
