#include "model/shared/modRegistry.h"

#include <filesystem>
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

TEST_F(modRegistryTest, AnErrorGivesAnEmptyText) {
  Install("OPC Server");
  faults.reading = FaultyFiles::Fault{"TheServer.service", ErrorNumber::PathFileAccess};
  EXPECT_EQ(Value(), "");
  EXPECT_TRUE(Boxes().empty());
}

}  // namespace
}  // namespace tavrin
