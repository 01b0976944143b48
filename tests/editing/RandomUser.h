#pragma once

#include <array>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "editing/SheetEditing.h"
#include "editing/TagRowsTest.h"

namespace tavrin {

/// A user who edits a project with one network and one device of each type in whatever way the dice say, and what must
/// hold after each of his steps.
class RandomUser : public TagRowsTest {
 protected:
  RandomUser();

  /// One step: an edit, a deletion, a sort, another node, a save or a load.
  void Step();
  /// What grids and project are to each other between two steps.
  void ExpectInvariants();

  /// How often each kind of step was played, so that a test can see that all were.
  struct Played {
    int edits = 0;
    int cancelled = 0;
    int refused = 0;
    int deletions = 0;
    int sorts = 0;
    int saves = 0;
    int loads = 0;
    int savedClean = 0;  ///< saves of a project that was clean
  };
  Played played;

 private:
  [[nodiscard]] int Dice(int sides) { return std::uniform_int_distribution<int>(0, sides - 1)(dice_); }
  [[nodiscard]] bool Chance(int percent) { return Dice(100) < percent; }
  template <std::size_t N>
  std::string OneOf(const std::array<std::string_view, N>& choices) {
    return std::string(choices.at(static_cast<std::size_t>(Dice(static_cast<int>(N)))));
  }

  void SelectNode();
  void ShowNode();
  void EditSheet();
  void EditTag();
  void DeleteTags();
  void SortTags();
  void SaveProject();
  void LoadProjectAgain();

  /// Ends an open edit in one of the ways that a user has. @return false when he gave it up
  bool EndEdit(Grid& shown);
  /// What must hold when an edit has ended.
  void JudgeEdit(bool entered, int sheetRow);
  std::string TagText(int col);

  [[nodiscard]] Grid& Sheet();
  [[nodiscard]] bool OnDevice() const { return modMain::globals.gnCurrentDevice != 0; }
  void MarkClean();
  void ExpectSheet();
  void ExpectTags();
  void ExpectNumbers();
  void ExpectDirtyMark();

  std::mt19937 dice_{20240229};
  std::array<std::unique_ptr<SheetEditing>, 11> editing_;
  int sheet_ = 0;
  std::set<int> oddRows_;            ///< of the sheet: the cell keeps a refused text until the next show
  std::vector<std::string> before_;  ///< the project before the step
  std::vector<std::string> clean_;   ///< the project when it was last saved or loaded
  bool setterMayHaveRun_ = false;
  bool savedSinceLoad_ = false;
};

}  // namespace tavrin
