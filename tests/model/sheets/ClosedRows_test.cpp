// The rules behind the rows of a sheet that no gesture opens: they hold all the same.
#include <span>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "model/cOPC.h"
#include "model/sheets/DeviceSheets.h"
#include "model/sheets/NetworkSheets.h"
#include "model/sheets/ProjectSheet.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

class ClosedRowsTest : public ProjectTest {
 protected:
  /// A file name: closed, name keys, a text that goes to the property and is read back.
  template <class Owner>
  void ExpectFileName(const SheetRow<Owner>& row, Owner& owner) {
    EXPECT_EQ(row.edit.editor, CellEditor::Closed);
    EXPECT_EQ(row.edit.keys, KeyClass::Name);
    EXPECT_EQ(row.edit.choices, "");
    EXPECT_EQ(row.edit.after, AfterEdit::ReadBack);
    EXPECT_TRUE(row.edit.assign(owner, "other.ini"));
    EXPECT_EQ(row.read(owner), "other.ini");
    EXPECT_TRUE(row.edit.assign(owner, ""));
    EXPECT_THAT(Boxes(), ElementsAre("#204 #218"));
    EXPECT_EQ(row.read(owner), "other.ini");
  }
};

TEST_F(ClosedRowsTest, TheFileNameOfTheProject) { ExpectFileName(ProjectSheet()[0], Project()); }

TEST_F(ClosedRowsTest, TypeAndFileNameOfANetwork) {
  for (int type = 0; type < kNetworkTypes; ++type) {
    cNetwork network;
    const auto rows = NetworkSheet(type);
    EXPECT_EQ(rows[0].edit.editor, CellEditor::Closed) << type;
    EXPECT_EQ(rows[0].edit.keys, KeyClass::None) << type;
    EXPECT_EQ(rows[0].edit.choices, "") << type;
    EXPECT_EQ(rows[0].edit.assign, nullptr) << type;
    ExpectFileName(rows[1], network);
  }
}

TEST_F(ClosedRowsTest, TheTagFileNameOfADevice) {
  for (int type = 0; type < kNetworkTypes; ++type) {
    cDevice device;
    ExpectFileName(DeviceSheet(type)[0], device);
  }
}

}  // namespace
}  // namespace tavrin
