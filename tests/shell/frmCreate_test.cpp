#include "shell/frmCreate.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kOk = 0;
constexpr int kCancel = 1;

/// A project with the networks "Line" and "Hall" and the device "Press" in "Line".
class frmCreateTest : public ProjectTest {
 protected:
  frmCreateTest() {
    AddDevice(AddNetwork(NetworkType::Mpi, "Line"), "Press");
    AddNetwork(NetworkType::TcpIso, "Hall");
  }

  /// Opens the dialog modally and plays the user in it.
  template <class Play>
  frmCreate& Open(frmCreate::Mode mode, const Play& play) {
    form = std::make_unique<frmCreate>(mode);
    desktop.OnModal = [&](Form& shown) {
      EXPECT_EQ(&shown, form.get());
      play(*form);
    };
    desktop.ShowModal(*form);
    return *form;
  }
  /// For a play that leaves the dialog open, which the test then closes.
  template <class Play>
  frmCreate& OpenAndStay(frmCreate::Mode mode, const Play& play) {
    return Open(mode, [&](frmCreate& dialog) {
      play(dialog);
      EXPECT_TRUE(dialog.Visible());
      dialog.Hide();
    });
  }
  static void Ok(frmCreate& dialog) { dialog.cmdAction(kOk).UserClick(); }

  std::unique_ptr<frmCreate> form;
};

// ---- what is shown

TEST_F(frmCreateTest, ForANetworkItAsksForNameAndType) {
  const frmCreate dialog(frmCreate::kNetwork);
  EXPECT_EQ(dialog.Name(), "frmCreate");
  EXPECT_EQ(dialog.nMode, 0);
  EXPECT_EQ(dialog.Caption(), "#37");
  EXPECT_TRUE(dialog.lbl(0).Visible());
  EXPECT_TRUE(dialog.lbl(1).Visible());
}

TEST_F(frmCreateTest, ForADeviceItAsksForTheNameAlone) {
  const frmCreate dialog(frmCreate::kDevice);
  EXPECT_EQ(dialog.nMode, 1);
  EXPECT_EQ(dialog.Caption(), "#38");
  EXPECT_TRUE(dialog.lbl(0).Visible());
  EXPECT_FALSE(dialog.lbl(1).Visible());
}

TEST_F(frmCreateTest, ThreeOfTheFiveTypesAreOfferedForANetworkAndNoneForADevice) {
  for (const auto mode : {frmCreate::kNetwork, frmCreate::kDevice}) {
    const frmCreate dialog(mode);
    std::vector<bool> shown;
    std::vector<std::string> captions;
    dialog.rbType.ForEach([&](const RadioButton& button) {
      shown.push_back(button.Visible());
      captions.push_back(button.Caption());
      EXPECT_FALSE(button.Checked());
    });
    const bool offered = mode == frmCreate::kNetwork;
    EXPECT_THAT(shown, ElementsAre(offered, false, offered, offered, false));
    EXPECT_THAT(captions, ElementsAre("#34", "#35", "#36", "#27", "#26"));
  }
}

TEST_F(frmCreateTest, ButtonsAndLabelsHaveTheirTexts) {
  for (const auto mode : {frmCreate::kNetwork, frmCreate::kDevice}) {
    const frmCreate dialog(mode);
    EXPECT_EQ(dialog.cmdAction(kOk).Caption(), "#30");
    EXPECT_EQ(dialog.cmdAction(kCancel).Caption(), "#31");
    EXPECT_EQ(dialog.lbl(0).Caption(), "#32");
    EXPECT_EQ(dialog.lbl(1).Caption(), "#33");
    EXPECT_EQ(dialog.txtName.Text(), "");
    EXPECT_EQ(dialog.txtName.SpokenName(), "#32");
  }
}

TEST_F(frmCreateTest, TheKeyboardBelongsToTheName) {
  for (const auto mode : {frmCreate::kNetwork, frmCreate::kDevice}) {
    OpenAndStay(mode, [](frmCreate& dialog) { EXPECT_TRUE(dialog.txtName.Focused()); });
  }
}

TEST_F(frmCreateTest, EnterIsOkAndEscapeIsCancel) {
  const frmCreate dialog(frmCreate::kNetwork);
  EXPECT_EQ(dialog.cmdAction(kOk).Role(), ButtonRole::Default);
  EXPECT_EQ(dialog.cmdAction(kCancel).Role(), ButtonRole::Cancel);
}

TEST_F(frmCreateTest, EveryControlThatIsShownHasItsPlaceInTheDialog) {
  for (const auto mode : {frmCreate::kNetwork, frmCreate::kDevice}) {
    const frmCreate dialog(mode);
    std::vector<const Control*> placed;
    for (const auto& row : dialog.Arrangement()) {
      for (const Control* control : row) {
        if (control != nullptr) placed.push_back(control);
      }
    }
    for (const Control* control : dialog.Controls()) {
      EXPECT_EQ(std::count(placed.begin(), placed.end(), control), control->Visible() ? 1 : 0) << control->Name();
    }
  }
}

// ---- the keys of the name

TEST_F(frmCreateTest, LettersDigitsUnderlineAndPointCanBeTyped) {
  std::string all;
  for (int code = 1; code < 256; ++code) all += static_cast<char>(code);
  for (const auto mode : {frmCreate::kNetwork, frmCreate::kDevice}) {
    OpenAndStay(mode, [&](frmCreate& dialog) {
      dialog.txtName.UserType(all);
      EXPECT_EQ(dialog.txtName.Text(), ".0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz");
    });
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmCreateTest, BackspaceIsLetThrough) {
  const frmCreate dialog(frmCreate::kNetwork);
  int key = 8;
  dialog.txtName.OnKeyPress(key);
  EXPECT_EQ(key, 8);
  key = 9;
  dialog.txtName.OnKeyPress(key);
  EXPECT_EQ(key, 0);
}

TEST_F(frmCreateTest, APastedNameIsNotFiltered) {
  frmCreate& dialog = Open(frmCreate::kDevice, [](frmCreate& open) {
    open.txtName.UserText("a b-\xE4;");
    Ok(open);
  });
  EXPECT_EQ(dialog.szName, "a b-\xE4;");
}

// ---- OK for a device

TEST_F(frmCreateTest, AFreeNameOfADeviceIsTakenTrimmed) {
  frmCreate& dialog = Open(frmCreate::kDevice, [](frmCreate& open) {
    open.txtName.UserText("  Drill ");
    Ok(open);
    EXPECT_FALSE(open.Visible());
  });
  EXPECT_EQ(dialog.szName, "Drill");
  EXPECT_FALSE(dialog.bCancel);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmCreateTest, AnEmptyNameOrBlanksAreToldAndCleared) {
  for (const auto mode : {frmCreate::kNetwork, frmCreate::kDevice}) {
    for (const char* text : {"", "   "}) {
      frmCreate& dialog = OpenAndStay(mode, [&](frmCreate& open) {
        open.rbType(0).UserClick();
        open.txtName.UserText(text);
        Ok(open);
      });
      EXPECT_THAT(Boxes(), ElementsAre("#209"));
      EXPECT_EQ(dialog.txtName.Text(), "");
      EXPECT_EQ(dialog.szName, "");
      EXPECT_FALSE(dialog.bCancel);
    }
  }
}

TEST_F(frmCreateTest, ADeviceNameThatAnyNetworkOfTheProjectHasIsRefusedInAnyCase) {
  frmCreate& dialog = OpenAndStay(frmCreate::kDevice, [](frmCreate& open) {
    open.txtName.UserText(" pRESS");
    Ok(open);
  });
  EXPECT_THAT(Boxes(), ElementsAre("#211 (pRESS)"));
  EXPECT_EQ(dialog.txtName.Text(), " pRESS");
  EXPECT_EQ(dialog.szName, "");
}

TEST_F(frmCreateTest, ADeviceMayHaveTheNameOfANetwork) {
  frmCreate& dialog = Open(frmCreate::kDevice, [](frmCreate& open) {
    open.txtName.UserType("Hall");
    Ok(open);
  });
  EXPECT_EQ(dialog.szName, "Hall");
}

TEST_F(frmCreateTest, ForADeviceNoTypeIsAskedFor) {
  frmCreate& dialog = Open(frmCreate::kDevice, [](frmCreate& open) {
    open.rbType(2).Checked(true);
    open.txtName.UserType("Drill");
    Ok(open);
  });
  EXPECT_EQ(dialog.nType, 0);
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- OK for a network

TEST_F(frmCreateTest, ANetworkGetsNameAndType) {
  for (const int type : {0, 2, 3}) {
    frmCreate& dialog = Open(frmCreate::kNetwork, [&](frmCreate& open) {
      open.rbType(type == 0 ? 3 : 0).UserClick();
      open.rbType(type).UserClick();
      open.txtName.UserType("Yard.1");
      Ok(open);
    });
    EXPECT_EQ(dialog.nType, type);
    EXPECT_EQ(dialog.szName, "Yard.1");
    EXPECT_FALSE(dialog.bCancel);
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmCreateTest, TypesThatAreNotOfferedCannotBeChosen) {
  OpenAndStay(frmCreate::kNetwork, [](frmCreate& open) {
    open.rbType(1).UserClick();
    open.rbType(4).UserClick();
    open.txtName.UserType("Yard");
    Ok(open);
  });
  EXPECT_THAT(Boxes(), ElementsAre("#208"));
}

TEST_F(frmCreateTest, AGoodNameWithoutATypeKeepsTheDialogOpen) {
  frmCreate& dialog = OpenAndStay(frmCreate::kNetwork, [](frmCreate& open) {
    open.txtName.UserType("Yard");
    Ok(open);
  });
  EXPECT_THAT(Boxes(), ElementsAre("#208"));
  EXPECT_EQ(dialog.txtName.Text(), "Yard");
  EXPECT_FALSE(dialog.bCancel);
}

TEST_F(frmCreateTest, WithoutTypeAndNameTwoMessagesFollowEachOther) {
  OpenAndStay(frmCreate::kNetwork, [](frmCreate& open) { Ok(open); });
  EXPECT_THAT(Boxes(), ElementsAre("#208", "#209"));
}

TEST_F(frmCreateTest, WithoutATypeATakenNameIsToldToo) {
  OpenAndStay(frmCreate::kNetwork, [](frmCreate& open) {
    open.txtName.UserType("LINE");
    Ok(open);
  });
  EXPECT_THAT(Boxes(), ElementsAre("#208", "#210 (LINE)"));
}

TEST_F(frmCreateTest, ANetworkNameThatIsTakenInAnyCaseKeepsTheDialogOpen) {
  frmCreate& dialog = OpenAndStay(frmCreate::kNetwork, [](frmCreate& open) {
    open.rbType(2).UserClick();
    open.txtName.UserText(" line ");
    Ok(open);
  });
  EXPECT_THAT(Boxes(), ElementsAre("#210 (line)"));
  EXPECT_EQ(dialog.txtName.Text(), " line ");
  EXPECT_EQ(dialog.szName, "");
}

TEST_F(frmCreateTest, ANetworkMayHaveTheNameOfADevice) {
  frmCreate& dialog = Open(frmCreate::kNetwork, [](frmCreate& open) {
    open.rbType(0).UserClick();
    open.txtName.UserType("Press");
    Ok(open);
  });
  EXPECT_EQ(dialog.szName, "Press");
}

TEST_F(frmCreateTest, AfterARefusalTheUserCanMendIt) {
  frmCreate& dialog = Open(frmCreate::kNetwork, [](frmCreate& open) {
    open.txtName.UserType("Line");
    Ok(open);
    open.rbType(3).UserClick();
    Ok(open);
    open.txtName.UserType("2");
    Ok(open);
  });
  EXPECT_THAT(Boxes(), ElementsAre("#208", "#210 (Line)", "#210 (Line)"));
  EXPECT_EQ(dialog.szName, "Line2");
  EXPECT_EQ(dialog.nType, 3);
}

// ---- leaving it

TEST_F(frmCreateTest, CancelLeavesItWithoutAWord) {
  for (const auto mode : {frmCreate::kNetwork, frmCreate::kDevice}) {
    frmCreate& dialog = Open(mode, [](frmCreate& open) {
      open.txtName.UserType("Line");
      open.cmdAction(kCancel).UserClick();
      EXPECT_FALSE(open.Visible());
    });
    EXPECT_TRUE(dialog.bCancel);
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(frmCreateTest, TheCloseBoxIsCancelToo) {
  frmCreate& dialog = Open(frmCreate::kNetwork, [](frmCreate& open) { open.UserClose(); });
  EXPECT_TRUE(dialog.bCancel);
  EXPECT_FALSE(dialog.Visible());
}

TEST_F(frmCreateTest, AnErrorIsReportedAndTheDialogStays) {
  OpenAndStay(frmCreate::kDevice, [](frmCreate& open) {
    open.txtName.UserType("Drill");
    modMain::globals.gnCurrentNetwork = 0;
    modMain::globals.gOPC.reset();
    Ok(open);
  });
  EXPECT_THAT(Boxes(), ElementsAre("#199 91 #200 frmCreate.cmdAction_Click : Object variable or With block variable "
                                   "not set"));
}

TEST_F(frmCreateTest, ANameWhoseFileBelongsToAnotherObjectIsRefused) {
  OpenAndStay(frmCreate::kNetwork, [](frmCreate& dialog) {
    dialog.rbType(0).UserClick();
    dialog.txtName.UserText("zopcsrv");
    Ok(dialog);
  });
  EXPECT_THAT(Boxes(), ElementsAre("#212 (zopcsrv.ini)")) << "the network would overwrite the root file";
  Device(1, 1).szTagFileName("Spare.csv");
  OpenAndStay(frmCreate::kDevice, [](frmCreate& dialog) {
    dialog.txtName.UserText("SPARE");
    Ok(dialog);
  });
  EXPECT_THAT(Boxes(), ElementsAre("#212 (SPARE.csv)"));
}

}  // namespace
}  // namespace tavrin
