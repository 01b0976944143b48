#include "brand/Brand.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

TEST(BrandTest, EachDifferenceOfTheBrandIsThatOfTheBuild) {
  const Brand& brand = OemBrand();
  EXPECT_EQ(brand.name, TAVRIN_TEST_BRAND);
  if (std::string_view(TAVRIN_TEST_BRAND) == "QORVANE") {
    EXPECT_TRUE(IsQorvane());
    EXPECT_EQ(brand.settingsApplication, "QORVANETAVRIN");
    EXPECT_EQ(brand.serviceKey, "System\\CurrentControlSet\\Services\\QorvaneOpcServer");
    EXPECT_EQ(brand.progId, "Qorvane.OPCServer.1");
  } else {
    EXPECT_FALSE(IsQorvane());
    EXPECT_EQ(brand.settingsApplication, "ZELKARTAVRIN");
    EXPECT_EQ(brand.serviceKey, "System\\CurrentControlSet\\Services\\ZelkarOpcServer");
    EXPECT_EQ(brand.progId, "Zelkar.OPCServer.1");
  }
}

}  // namespace
}  // namespace tavrin
