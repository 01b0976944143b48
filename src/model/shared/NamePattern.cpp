#include "model/shared/NamePattern.h"

#include <cstddef>
#include <string>
#include <vector>

#include "platform/CodePage.h"

namespace tavrin {

namespace {

enum class Piece { Literal, Any, AnyBeforeLastPoint, One, PointOrEnd };

/// What a character of the pattern means, which hangs on the one behind it.
Piece Meaning(std::string_view pattern, std::size_t at) {
  const char next = at + 1 < pattern.size() ? pattern[at + 1] : '\0';
  if (pattern[at] == '?') return Piece::One;
  if (pattern[at] == '*') return next == '.' ? Piece::AnyBeforeLastPoint : Piece::Any;
  if (pattern[at] == '.' && (next == '*' || next == '?')) return Piece::PointOrEnd;
  return Piece::Literal;
}

/// The places of a name up to which the pattern read so far can reach. All of them are followed side by side, so that
/// a pattern of many stars takes no endless time.
class Reach {
 public:
  explicit Reach(std::string_view name) : name_(name), lastPoint_(name.rfind('.')), places_(name.size() + 1) {
    places_[0] = true;
  }

  void Read(Piece piece, char character) {
    std::vector<bool> next(places_.size());
    for (std::size_t i = 0; i < places_.size(); ++i) {
      if (places_[i]) Step(piece, character, i, next);
    }
    places_ = std::move(next);
  }

  [[nodiscard]] bool AtEnd() const { return places_.back(); }

 private:
  void Step(Piece piece, char character, std::size_t from, std::vector<bool>& next) const {
    const bool end = from == name_.size();
    switch (piece) {
      case Piece::Literal:
        if (!end && name_[from] == character) next[from + 1] = true;
        break;
      case Piece::One: next[end || name_[from] == '.' ? from : from + 1] = true; break;
      case Piece::PointOrEnd:
        if (end || name_[from] == '.') next[end ? from : from + 1] = true;
        break;
      case Piece::Any: Fill(from, name_.size(), next); break;
      case Piece::AnyBeforeLastPoint: {
        const bool behind = lastPoint_ == std::string_view::npos || from > lastPoint_;
        Fill(from, behind ? name_.size() : lastPoint_, next);
        break;
      }
    }
  }

  static void Fill(std::size_t from, std::size_t to, std::vector<bool>& next) {
    for (std::size_t i = from; i <= to; ++i) next[i] = true;
  }

  std::string_view name_;
  std::size_t lastPoint_;
  std::vector<bool> places_;
};

}  // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  const std::string upperName = UpperCase(name);
  const std::string upperPattern = UpperCase(pattern);
  // A point at the end only says that there is no extension.
  const std::size_t length = upperPattern.ends_with('.') ? upperPattern.size() - 1 : upperPattern.size();
  Reach reach(upperName);
  for (std::size_t i = 0; i < length; ++i) reach.Read(Meaning(upperPattern, i), upperPattern[i]);
  return reach.AtEnd();
}

}  // namespace tavrin
