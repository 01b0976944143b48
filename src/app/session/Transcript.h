#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tavrin {

/// A text of the code page between quotation marks as a script writes it, UTF-8.
[[nodiscard]] std::string Quoted(std::string_view text);

/// What a run prints: the lines of the script, each with what the user sees happen after it. UTF-8.
class Transcript {
 public:
  using Sink = std::function<void(std::string_view utf8)>;
  explicit Transcript(Sink sink) : sink_(std::move(sink)) {}

  /// A line of the script.
  void Echo(std::string_view utf8) { Write("> ", utf8); }
  /// Something that happened.
  void Tell(std::string_view utf8) { Write("  ", utf8); }
  /// Something that has a text: "caption" and the caption.
  void Tell(std::string_view subject, std::string_view text) { Tell(std::string(subject) + " " + Quoted(text)); }

 private:
  void Write(std::string_view margin, std::string_view utf8) {
    std::string line(margin);
    sink_(line.append(utf8).append(1, '\n'));
  }

  Sink sink_;
};

}  // namespace tavrin
