#include "app/session/Gestures.h"
#include "app/session/Reach.h"

namespace tavrin {

namespace {

/// A click on a box turns it over, so that a script that is wrong about it would do the opposite of what it says.
void Tick(const Stage& stage, Words words, bool checked) {
  ListView& list = FindListView(stage, words[0]);
  CheckUsable(list);
  const int row = FindRow(list, words[1]);
  if (list.Item(row).checked == checked) {
    throw Refusal{Quoted(words[1]) + (checked ? " is ticked already" : " is not ticked")};
  }
  list.UserCheck(row, checked);
}

}  // namespace

void TickRow(Stage& stage, Words words) { Tick(stage, words, true); }

void UntickRow(Stage& stage, Words words) { Tick(stage, words, false); }

}  // namespace tavrin
