#include "shell/frmInfo.h"

#include "brand/Brand.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

class InfoTest : public ProjectTest {
 protected:
  static std::vector<std::string> Captions(const frmInfo& info, int first, int last) {
    std::vector<std::string> lines;
    for (int index = first; index <= last; ++index) lines.push_back(info.Label1(index).Caption());
    return lines;
  }
};

TEST_F(InfoTest, ItsWordsComeFromTheCatalogue) {
  const frmInfo info;
  EXPECT_EQ(info.Name(), "frmInfo");
  EXPECT_EQ(info.Caption(), "#1");
  EXPECT_EQ(info.cmdAction(0).Caption(), "#30");
  EXPECT_EQ(info.cmdAction(0).Role(), ButtonRole::Default);
}

TEST_F(InfoTest, BehindTheWordVersionNothingStands) {
  const frmInfo info;
  EXPECT_EQ(info.lblVersion.Caption(), "#105: ");
}

TEST_F(InfoTest, ThePictureIsTheLogoOfTheBrand) {
  const frmInfo info;
  EXPECT_EQ(info.Picture1.Image(), "ZELKAR");
  EXPECT_EQ(info.Picture2.Image(), "QORVANE");
  EXPECT_EQ(info.Picture1.Visible(), !IsQorvane());
  EXPECT_EQ(info.Picture2.Visible(), IsQorvane());
}

TEST_F(InfoTest, TheLinesAreThoseOfTheFirmOfTheBrand) {
  const frmInfo info;
  EXPECT_THAT(Captions(info, 4, 7), ElementsAre("Tel.:", "Fax:", "E-Mail:", "Web:"));
  if (IsQorvane()) {
    EXPECT_THAT(Captions(info, 0, 3),
                ElementsAre("QORVANE Controls Ltd.", "7 Ladder Logic Lane", "London", "United Kingdom"));
    EXPECT_THAT(Captions(info, 8, 11),
                ElementsAre("+44 20 7946 0120", "+44 20 7946 0129", "opc@qorvane.example.net", "qorvane.example.net"));
  } else {
    EXPECT_THAT(Captions(info, 0, 3),
                ElementsAre("ZELKAR Steuerungen GmbH", "Klemmleistenweg 12", "80000 M\xFCnchen", "Germany"));
    EXPECT_THAT(Captions(info, 8, 11),
                ElementsAre("+49 89 99998-110", "+49 89 99998-119", "opc@zelkar.example.com", "zelkar.example.com"));
  }
}

TEST_F(InfoTest, EveryControlHasItsPlaceAndEachWayStandsBesideItsWord) {
  const frmInfo info;
  std::size_t placed = 0;
  for (const auto& row : info.Arrangement()) placed += row.size();
  EXPECT_EQ(placed, info.Controls().size());
  for (int index = 4; index <= 7; ++index) {
    EXPECT_THAT(info.Arrangement(), testing::Contains(ElementsAre(&info.Label1(index), &info.Label1(index + 4))));
  }
}

TEST_F(InfoTest, TheButtonClosesTheWindow) {
  frmInfo info;
  desktop.OnModal = [&info](Form& form) {
    EXPECT_EQ(&form, &info);
    info.cmdAction(0).UserClick();
    EXPECT_FALSE(form.Visible());
  };
  desktop.ShowModal(info);
}

}  // namespace
}  // namespace tavrin
