#include "online/frmTest.h"

#include "model/shared/modText.h"

namespace tavrin {

frmTest::frmTest() : Form("frmTest"), cmdAction(*this, "cmdAction") {
  Caption("Testen");
  Button& close = cmdAction.Load(0);
  close.Caption(ResText(28));
  close.Role(ButtonRole::Cancel);
  close.OnClick = [this] { Hide(); };
  Arrangement({{&close}});
}

}  // namespace tavrin
