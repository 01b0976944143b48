#include "model/shared/modRegistry.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

constexpr std::string_view kKey = "System\\CurrentControlSet\\Services\\TheServer";

class modRegistryTest : public ProjectTest {
 protected:
  modRegistryTest() { std::filesystem::create_directories(directory.Path() + "etc/systemd/system"); }

  void Install(const std::string& description) const {
    directory.Write("etc/systemd/system/TheServer.service", "[Unit]\nDescription=" + description + "\n");
  }
  [[nodiscard]] static std::string Value() { return GetRegistryValue(kKey, "DisplayName", "default"); }
};

TEST_F(modRegistryTest, TheValueOfAnInstalledServiceIsItsName) {
  Install("OPC Server");
  EXPECT_EQ(Value(), "OPC Server");
}

TEST_F(modRegistryTest, AMissingKeyOrValueGivesTheDefault) {
  EXPECT_EQ(Value(), "default");
  EXPECT_EQ(GetRegistryValue(kKey, "DisplayName", ""), "");
  Install("OPC Server");
  EXPECT_EQ(GetRegistryValue(kKey, "ImagePath", "default"), "default");
  EXPECT_EQ(GetRegistryValue("Software\\TheServer", "DisplayName", "default"), "default");
}

TEST_F(modRegistryTest, AValueOfMoreThan254CharactersGivesTheDefault) {
  Install(std::string(254, 'x'));
  EXPECT_EQ(Value(), std::string(254, 'x'));
  Install(std::string(255, 'x'));
  EXPECT_EQ(Value(), "default");
}

TEST_F(modRegistryTest, AnEmptyValueIsAValue) {
  Install("");
  EXPECT_EQ(Value(), "");
}

TEST_F(modRegistryTest, AUnitThatCannotBeReadGivesTheDefault) {
  Install("OPC Server");
  faults.reading = FaultyFiles::Fault{"TheServer.service", ErrorNumber::PathFileAccess};
  EXPECT_EQ(Value(), "default");
}

TEST_F(modRegistryTest, AMaskedUnitGivesTheDefault) {
  std::filesystem::create_symlink("/dev/null", directory.Path() + "etc/systemd/system/TheServer.service");
  EXPECT_EQ(Value(), "default");
}

TEST_F(modRegistryTest, AnErrorGivesAnEmptyText) {
  class BrokenRegistry : public Registry {
    std::optional<std::string> QueryText(std::string_view, std::string_view) override {
      throw RuntimeError(ErrorNumber::DeviceIoError);
    }
  };
  BrokenRegistry broken;
  const Services withBroken{desktop, files, files, broken, texts, syntax, settings, around.all, ""};
  modMain::globals.services = &withBroken;
  EXPECT_EQ(Value(), "");
  EXPECT_TRUE(Boxes().empty());
}

}  // namespace
}  // namespace tavrin
