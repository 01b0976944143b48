#include "platform/profile/ProfileAnswer.h"

#include <algorithm>
#include <array>

namespace tavrin {
namespace {

using Kind = ProfileLine::Kind;

std::size_t CopyText(std::string_view text, std::span<char> buffer) {
  if (buffer.empty()) return 0;
  const std::size_t length = std::min(text.size(), buffer.size() - 1);
  std::copy_n(text.begin(), length, buffer.begin());
  buffer[length] = '\0';
  return length;
}

std::size_t CopyFallback(std::string_view fallback, std::span<char> buffer) {
  fallback = TextArgument(fallback);
  return CopyText(fallback.substr(0, fallback.find_last_not_of(' ') + 1), buffer);
}

constexpr std::array kNulText{'\0'};
constexpr std::string_view kNul(kNulText.data(), kNulText.size());

/// Texts, each ended by NUL, for as long as there is room for them and two NULs more.
class ListBuffer {
 public:
  explicit ListBuffer(std::span<char> buffer) : buffer_(buffer), room_(std::max<std::size_t>(buffer.size(), 2) - 2) {}

  void Add(std::string_view piece) {
    const std::size_t length = std::min(piece.size(), room_ - used_);
    std::copy_n(piece.begin(), length, buffer_.begin() + static_cast<std::ptrdiff_t>(used_));
    used_ += length;
    full_ = full_ || length < piece.size();
  }
  void EndText() { Add(kNul); }

  /// True when something had to be cut: nothing more needs to be added.
  [[nodiscard]] bool Full() const { return full_; }
  [[nodiscard]] bool Empty() const { return used_ == 0 && !full_; }

  std::size_t Finish() {
    Close(full_ ? 2 : 1);
    return used_;
  }
  /// Puts NULs behind the list, as far as the buffer reaches.
  void Close(std::size_t nuls) {
    const std::size_t fitting = std::min(nuls, buffer_.size() - used_);
    std::fill_n(buffer_.begin() + static_cast<std::ptrdiff_t>(used_), fitting, '\0');
  }

 private:
  std::span<char> buffer_;
  std::size_t room_;
  std::size_t used_ = 0;
  bool full_ = false;
};

/// Lists the lines of a section that `add` puts into the list.
template <typename AddLine>
void ListLines(const ProfileImage& image, std::string_view section, ListBuffer& list, AddLine add) {
  const std::optional<std::size_t> found = image.FindSection(section);
  if (!found) return;
  ProfileLineReader lines = image.Lines(*found);
  for (std::optional<ProfileLine> line = lines.Next(); line && !list.Full(); line = lines.Next()) add(*line);
}

}  // namespace

std::size_t AnswerValue(const ProfileImage& image, std::string_view section, std::string_view key,
                        std::string_view fallback, std::span<char> buffer) {
  const std::optional<std::size_t> found = image.FindSection(section);
  const std::optional<ProfileLine> line = found ? image.FindKey(*found, key) : std::nullopt;
  return line ? CopyText(WithoutQuotes(line->value), buffer) : CopyFallback(fallback, buffer);
}

std::size_t AnswerKeys(const ProfileImage& image, std::string_view section, std::string_view fallback,
                       std::span<char> buffer) {
  ListBuffer list(buffer);
  ListLines(image, section, list, [&list](const ProfileLine& line) {
    if (line.kind != Kind::Key || line.name.empty()) return;
    list.Add(line.name);
    list.EndText();
  });
  return list.Empty() ? CopyFallback(fallback, buffer) : list.Finish();
}

std::size_t AnswerSectionNames(const ProfileImage& image, std::span<char> buffer) {
  ListBuffer list(buffer);
  for (std::size_t section = 0; section < image.SectionCount() && !list.Full(); ++section) {
    const std::string_view name = image.SectionName(section);
    if (name.empty()) continue;
    list.Add(name);
    list.EndText();
  }
  return list.Finish();
}

std::size_t AnswerSection(const ProfileImage& image, std::string_view section, std::span<char> buffer) {
  ListBuffer list(buffer);
  ListLines(image, section, list, [&list](const ProfileLine& line) {
    if (line.kind != Kind::Key && line.kind != Kind::Text) return;
    if (line.kind == Kind::Key) {
      list.Add(line.name);
      list.Add("=");
    }
    list.Add(line.value);
    list.EndText();
  });
  if (list.Empty()) list.Close(2);
  return list.Empty() ? 0 : list.Finish();
}

}  // namespace tavrin
