#include <array>

#include "app/session/Gestures.h"
#include "app/session/Reach.h"

namespace tavrin {

namespace {

struct StateName {
  std::string_view name;
  WindowState state;
};
constexpr std::array kStates{StateName{"normal", WindowState::Normal}, StateName{"minimised", WindowState::Minimised},
                             StateName{"maximised", WindowState::Maximised}};

float Twips(const std::string& word) { return static_cast<float>(NumberOf(word)); }

}  // namespace

void ResizeWindow(Stage& stage, Words words) {
  Form& form = stage.Window();
  Rect place = form.Place();
  place.width = Twips(words[0]);
  place.height = Twips(words[1]);
  const bool tooSmall = place.width < form.MinimumWidth() || place.height < form.MinimumHeight();
  if (tooSmall || place.width <= 0 || place.height <= 0) throw Refusal{"the window cannot be made so small"};
  form.UserPlace(place);
}

void MoveWindow(Stage& stage, Words words) {
  Form& form = stage.Window();
  Rect place = form.Place();
  place.left = Twips(words[0]);
  place.top = Twips(words[1]);
  form.UserPlace(place);
}

void ChangeState(Stage& stage, Words words) {
  for (const StateName& known : kStates) {
    if (known.name == words[0]) return stage.Window().UserState(known.state);
  }
  throw Refusal{"wanted: normal, minimised or maximised"};
}

void DropFile(Stage& stage, Words words) {
  Form& form = stage.Window();
  if (!form.OnDropFile) throw Refusal{form.Name() + " takes no files"};
  form.UserDropFile(AbsolutePath(words[0]));
}

void CloseWindow(Stage& stage, Words) { stage.Window().UserClose(); }

}  // namespace tavrin
