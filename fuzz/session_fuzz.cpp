// Any text as a script: it is taken or refused with the line, and the words of a line that was taken can be written
// down and are read back.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "app/session/Script.h"
#include "app/session/Transcript.h"
#include "app/session/Verbs.h"

namespace {

using tavrin::ScriptLine;
using tavrin::ScriptParser;

void Require(bool condition) {
  if (!condition) std::abort();
}

void RequireReadBack(const ScriptLine& line) {
  std::string text;
  for (const std::string& word : line.words) text += tavrin::Quoted(word) + " ";
  if (text.size() > ScriptParser::kLongestLine) return;
  ScriptParser parser({});
  Require(parser.Parse(text));
  Require(parser.Lines().size() == 1 && parser.Lines().front().words == line.words);
}

void RequireOrder(const std::vector<ScriptLine>& lines) {
  int before = 0;
  for (const ScriptLine& line : lines) {
    Require(line.number > before && !line.words.empty() && !line.text.empty());
    before = line.number;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  ScriptParser parser({"one", "two words", "\"$1\""});
  if (!parser.Parse(text)) {
    Require(parser.Lines().empty() && parser.Fault().line > 0 && !parser.Fault().message.empty());
    return 0;
  }
  RequireOrder(parser.Lines());
  for (const ScriptLine& line : parser.Lines()) RequireReadBack(line);
  if (const auto fault = tavrin::FindFault(parser.Lines())) Require(fault->line > 0 && !fault->message.empty());
  return 0;
}
