#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/controls/Control.h"

namespace tavrin {

/// What a picture is for; decides how it is drawn and whether it can be dragged.
enum class PictureKind {
  Image,     ///< the picture of a key
  Line,      ///< an etched line
  Splitter,  ///< a bar that the user drags: across when it is higher than wide, else up and down
  Shadow,    ///< shows where a bar will be while it is dragged
};

/// A picture, a line or a bar. Positions are twips within the control and may lie outside of it while it is dragged.
class Picture : public Control {
 public:
  Picture(Form& form, const std::string& name, PictureKind kind) : Control(form, name), kind_(kind) {}

  [[nodiscard]] PictureKind Kind() const { return kind_; }
  /// Key of the picture.
  [[nodiscard]] const std::string& Image() const { return image_; }
  void Image(std::string_view value) { Assign(image_, std::string(value)); }

  /// The user presses the left button on the picture, moves with the button held, lets go.
  void UserPress(float x, float y);
  void UserMove(float x, float y) { Run(OnMouseMove, x, y); }
  void UserRelease(float x, float y) { Run(OnMouseUp, x, y); }

  std::function<void(float x, float y)> OnMouseDown;
  std::function<void(float x, float y)> OnMouseMove;
  std::function<void(float x, float y)> OnMouseUp;

 private:
  PictureKind kind_;
  std::string image_;
};

}  // namespace tavrin
