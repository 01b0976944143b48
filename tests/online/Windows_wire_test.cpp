// The windows against the simulation of the server, over the wire.
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "online/OnlineServer.h"
#include "online/frmOnline.h"
#include "online/frmTest.h"
#include "online/opc/OpcServers.h"
#include "sim/SimProcess.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

constexpr int kPatience = 5000;  // milliseconds that anything may take

/// The sample project, saved and served, and open in the editor.
class WindowsOverTheWire : public ProjectTest {
 protected:
  WindowsOverTheWire() {
    std::filesystem::copy(TAVRIN_SOURCE_DIR "/samples/plant", directory.Path(),
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(services.applicationDirectory + "/LOG");
    simulation = std::make_unique<SimProcess>(directory.Path() + "ZOPCSRV.ini");
    const std::string url = SimProcess::UrlOf(simulation->NextLine());
    std::ofstream(Configuration()) << "[Servers]\n" << OnlineServerProgID() << "=" << url << "\n";
    servers = MakeOpcServers(desktop, files, Configuration());
    around.all.opc = servers.get();
    Load();
    SelectDevice("Pruefplatz");
  }

  [[nodiscard]] std::string Configuration() const { return services.applicationDirectory + "/Tavrin.INI"; }

  void SelectDevice(std::string_view name) {
    auto& globals = modMain::globals;
    globals.gnCurrentNetwork = 0;
    for (cNetwork& network : Project().Networks()) {
      ++globals.gnCurrentNetwork;
      globals.gnCurrentDevice = 0;
      for (const cDevice& device : network.Devices()) {
        ++globals.gnCurrentDevice;
        if (device.szDeviceName() == name) return;
      }
    }
    FAIL() << "no device " << name;
  }

  /// Opens the monitor of a tag of the device.
  [[nodiscard]] std::unique_ptr<frmOnline> Monitor(std::string_view tag) const {
    auto window = std::make_unique<frmOnline>();
    window->szDeviceName("Pruefplatz");
    window->szTag(tag);
    window->Form_Load();
    return window;
  }

  std::unique_ptr<SimProcess> simulation;
  std::unique_ptr<OpcServers> servers;
};

TEST_F(WindowsOverTheWire, TheMonitorShowsALiveValueWithQualityAndTimeStamp) {
  const auto window = Monitor("Wort_1");
  const Label& value = window->Label1(9);
  ASSERT_TRUE(desktop.WaitUntil([&] { return !value.Caption().empty(); }, kPatience));
  EXPECT_THAT(value.Caption(), MatchesRegex("-?[0-9]+"));
  EXPECT_EQ(window->Label1(10).Caption(), "good (non-specific)");
  EXPECT_THAT(window->Label1(11).Caption(), MatchesRegex("[0-9.]+ [0-9:]+"));
  const std::string first = value.Caption();
  EXPECT_TRUE(desktop.WaitUntil([&] { return value.Caption() != first; }, kPatience)) << "the value does not move";
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(WindowsOverTheWire, TheMonitorOfATagThatTheServerDoesNotHaveStaysEmpty) {
  const auto window = Monitor("Nothing");
  static_cast<void>(desktop.WaitUntil([] { return false; }, 500));
  EXPECT_EQ(window->Label1(9).Caption(), "");
  EXPECT_EQ(window->Label1(10).Caption(), "");
  EXPECT_EQ(window->Label1(11).Caption(), "");
}

TEST_F(WindowsOverTheWire, TheTestRunWritesAllSetValuesReadsThemBackAndKeepsTheProtocol) {
  frmTest window;
  window.Form_Load();
  window.Show();
  window.txtInterval.UserText("20");
  window.cmdStart.UserClick();
  const auto shows = [&window](const std::string& tag, const std::string& actual) {
    for (int row = 1; row < window.vsgTest.Rows(); ++row) {
      if (window.vsgTest.Text({row, 1}) == tag) return window.vsgTest.Text({row, 3}) == actual;
    }
    return false;
  };
  bool written = false;
  for (int tick = 0; tick < 400 && window.Timer1.Enabled(); ++tick) {
    static_cast<void>(desktop.WaitUntil([] { return false; }, 20));
    // The clock stands until the server has told what was written.
    if (window.lblLastCommand.Caption() == "Update" && !written) {
      written = desktop.WaitUntil([&] { return shows("Wort_5", "4711"); }, kPatience);
    }
    window.Timer1.Elapse();
  }
  EXPECT_FALSE(window.Timer1.Enabled());
  EXPECT_TRUE(written);
  EXPECT_TRUE(shows("Wort_4", "-32768"));
  EXPECT_EQ(window.lblCurrRun.Caption(), "2");
  EXPECT_THAT(directory.Read("app/LOG/TESTPROT.TXT"), HasSubstr("/Pruefplatz     /Update\r\n"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tavrin
