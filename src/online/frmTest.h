#pragma once

#include <memory>
#include <vector>

#include "online/TestCycle.h"
#include "online/TestDevice.h"
#include "online/TestItems.h"
#include "online/opc/OPCDataControl.h"
#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"

namespace tavrin {

/// The test bench of the house, in German in every language: drives the selected device through the cycle of TestCycle
/// against the server and a partner on the device's side, shows all values and keeps a protocol (TestProtocol.h).
/// Needs no view: whoever has none calls Timer1.Elapse() in time.
class frmTest : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal), after Form_Load.
  frmTest();

  ControlArray<Label> Label1;  ///< what stands before the fields, in their order
  TextBox txtSollRuns;         ///< runs wanted
  CheckBox chkDoAbo;           ///< subscribe anew in every run
  TextBox txtInterval;         ///< milliseconds between two steps, and before the check
  CheckBox chkDoCheck;         ///< have the partner check
  Button cmdStart;
  Button cmdStop;
  Label lblDVCName;
  Label lblDVCType;
  Label lblCurrRun;
  Label lblLastCommand;
  Grid vsgTest;  ///< column 0 is hidden; column 5 stays empty, since nothing compares set and actual values
  Timer Timer1;
  OPCDataControl opcDC;

  TestDevice device;
  TestItems items{opcDC, device};
  TestCycle cycle{*this};

  /// Takes the device that is selected in the tree, connects and sends the partner back to its start.
  void Form_Load();
  void Form_Unload();
  void cmdStart_Click();
  void cmdStop_Click();
  void txtInterval_Change();
  void Timer1_Timer();
  void opcDC_OnDataChanged(const std::vector<OPCItem*>& changed);

 private:
  void Arrange();
  void Wire();
  void SetupGrid();
  void TakeChanges(const std::vector<OPCItem*>& changed);
  void ShowChanges(const std::vector<OPCItem*>& changed);
  void SaveResult();
  /// Runs an action unless another one runs: windows let events through while they connect or show a box. Changes that
  /// come meanwhile are taken after it, together. Of those that come while a box tells of a lost result only the values
  /// are taken. A tick that falls due meanwhile comes after the action.
  template <class Action>
  void Alone(const Action& action);
  void TakeHeld(void (frmTest::*take)(const std::vector<OPCItem*>& changed));
  void PostTick();
  void RunDueTick();

  bool busy_ = false;
  bool tickIsDue_ = false;
  bool resultIsLost_ = false;                                   // the last one: a box has told it
  const std::shared_ptr<frmTest> self_{this, [](frmTest*) {}};  // by which what is posted knows that the window lives
};

}  // namespace tavrin
