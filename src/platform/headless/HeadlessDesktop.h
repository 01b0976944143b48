#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Desktop.h"

namespace tavrin {

/// The desktop without a screen: boxes are recorded, questions are answered from answers given beforehand. A question
/// without an answer is answered with No and recorded, so that it can be reported and never blocks.
class HeadlessDesktop : public Desktop {
 public:
  /// Beyond kMost boxes nothing is recorded any more: a damaged file must not take memory without bound.
  void ShowBox(std::string_view text) override;
  static constexpr std::size_t kMost = 10'000'000;
  [[nodiscard]] bool AskYesNo(std::string_view text) override;

  /// Answers one further question, in the order of the calls.
  void AnswerNext(bool yes) { answers_.push_back(yes); }

  /// Texts of the boxes shown, oldest first.
  [[nodiscard]] const std::vector<std::string>& Boxes() const { return boxes_; }
  /// Texts of all questions asked, oldest first.
  [[nodiscard]] const std::vector<std::string>& Questions() const { return questions_; }
  /// Those of the questions that nobody had given an answer for.
  [[nodiscard]] const std::vector<std::string>& UnexpectedQuestions() const { return unexpected_; }

  /// Hands the recorded boxes over and forgets them.
  [[nodiscard]] std::vector<std::string> TakeBoxes();

 private:
  std::vector<std::string> boxes_;
  std::vector<std::string> questions_;
  std::vector<std::string> unexpected_;
  std::deque<bool> answers_;
};

}  // namespace tavrin
