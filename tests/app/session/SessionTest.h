#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/session/Session.h"
#include "app/session/Verbs.h"
#include "support/ProjectTest.h"

namespace tavrin {

/// Runs scripts in the process of the test. Text of number N reads "#N".
class SessionTest : public ProjectTest {
 protected:
  /// Copies a project of samples/ into the directory of the test, which is $1 of the scripts, without a separator.
  void CopySample(const std::string& name) {
    std::filesystem::copy(TAVRIN_SOURCE_DIR "/samples/" + name, directory.Path(),
                          std::filesystem::copy_options::recursive);
  }

  /// Runs the lines. @return "LINE: message" of the failure, empty when all held
  std::string Run(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    ScriptParser parser({directory.Path().substr(0, directory.Path().size() - 1)});
    EXPECT_TRUE(parser.Parse(text)) << parser.Fault().line << ": " << parser.Fault().message;
    const auto wrong = FindFault(parser.Lines());
    EXPECT_FALSE(wrong) << wrong->line << ": " << wrong->message;
    transcript.clear();
    Session session(services, [this](std::string_view line) { transcript += line; });
    const auto fault = session.Run(parser.Lines());
    return fault ? std::to_string(fault->line) + ": " + fault->message : "";
  }

  /// The same with a started program in which the sample of CopySample is open.
  std::string RunOpened(std::vector<std::string> lines) {
    const std::vector<std::string> opening{"start", "answer file $1/ZOPCSRV.ini", "click mnuFile 2"};
    lines.insert(lines.begin(), opening.begin(), opening.end());
    return Run(lines);
  }

  std::string transcript;
};

}  // namespace tavrin
