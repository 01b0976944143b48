#pragma once

#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "shell/frmCreate.h"
#include "support/ShellTest.h"

namespace tavrin {

/// Answers each question as the dice say, unless it has been told to say no.
class DiceDesktop : public HeadlessDesktop {
 public:
  explicit DiceDesktop(std::mt19937& dice) : dice_(dice) {}
  [[nodiscard]] bool AskYesNo(std::string_view text) override {
    asked.emplace_back(text);
    yes = !alwaysNo && std::uniform_int_distribution<int>(0, 2)(dice_) != 0;
    return yes;
  }
  std::vector<std::string> asked;
  bool yes = false;  ///< the last answer
  bool alwaysNo = false;

 private:
  std::mt19937& dice_;
};

/// The user, and what must hold after each of his steps.
class RandomWindowUser : public ShellTest {
 protected:
  RandomWindowUser() {
    modMain::globals.services = &own_;
    Start();
    dialogs_.OnModal = [this](Form& form) { PlayDialog(dynamic_cast<frmCreate&>(form)); };
    dialogs_.OnPopup = [this](MenuEntry& /*menu*/) {
      if (Chance(60)) Window().mnuEdit(1 + Dice(5)).UserClick();
    };
    MakePlant();
    LoadAgain();
  }
  ~RandomWindowUser() override {
    window.reset();
    modMain::globals.services = &services;
  }

  void Step();
  void ExpectInvariants();

  /// Windows that a command has left open.
  [[nodiscard]] const std::vector<std::string>& Unexpected() const { return dialogs_.UnexpectedQuestions(); }

  /// How often each kind of step did its work.
  std::map<std::string, int> played;

 private:
  [[nodiscard]] int Dice(int sides) { return std::uniform_int_distribution<int>(0, sides - 1)(dice_); }
  [[nodiscard]] bool Chance(int percent) { return Dice(100) < percent; }
  template <class Choices>
  [[nodiscard]] std::string OneOf(const Choices& choices) {
    return std::string(choices[static_cast<std::size_t>(Dice(static_cast<int>(choices.size())))]);
  }
  /// A name that nothing has had yet; now and then one that is bad or taken.
  std::string NewName();
  void MakePlant();

  void PlayDialog(frmCreate& dialog);
  void ClickNode();
  void EditSheet();
  void EditTag();
  std::string TagText(int col);
  void DeleteTags();
  void SortTags();
  void ChangeStructure();
  void Rename();
  void SaveProject();
  void LoadAgain();
  void ChangeLanguage() { Window().mnuLanguage(1 + Dice(2)).UserClick(); }
  /// @return false when the edit was given up
  bool EndEdit(Grid& grid);
  void JudgeEdit(bool entered, int sheetRow);

  [[nodiscard]] TreeNode& Selected() { return *Window().tvwMain.SelectedItem(); }
  [[nodiscard]] int SheetNumber() { return Selected().Tag(); }
  [[nodiscard]] Grid& Sheet() { return *Window().Sheets().at(static_cast<std::size_t>(SheetNumber())); }
  [[nodiscard]] Grid& Tags() { return Window().vsgTags; }
  [[nodiscard]] static bool OnDevice() { return modMain::globals.gnCurrentDevice != 0; }
  [[nodiscard]] std::vector<std::string> TakeBoxes() { return dialogs_.TakeBoxes(); }
  void MarkClean();
  void ExpectTree();
  void ExpectSheet();
  void ExpectTags();
  void ExpectDirtyMark();

  std::mt19937 dice_{19970313};
  DiceDesktop dialogs_{dice_};
  Services own_{dialogs_, files, files, registry, texts, syntax, settings, around.all, services.applicationDirectory};
  int names_ = 0;
  std::map<std::string, std::string> plant_;  ///< the files of the first project
  std::vector<std::string> before_;           ///< the project before the step
  std::vector<std::string> clean_;            ///< the project when it was last saved or loaded
  std::set<int> oddRows_;                     ///< of the sheet: the cell keeps what was refused
  bool setterMayHaveRun_ = false;
  bool savedSinceLoad_ = false;
};

}  // namespace tavrin
