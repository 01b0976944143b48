#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <string_view>

#include "app/Machine.h"
#include "app/editor/Application.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"
#include "platform/qt/FormView.h"
#include "platform/qt/Icons.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/QtWords.h"
#include "shell/frmOPC.h"

namespace {

using namespace std::string_view_literals;

/// The words behind the program's name. One that the code page does not have is none that the program knows.
std::string Words(int argc, char** argv) {
  std::string words;
  for (int i = 1; i < argc; ++i) {
    const auto word = tavrin::FromUtf8(argv[i]);
    if (word) words.append(words.empty() ? ""sv : " "sv).append(*word);
  }
  return words;
}

/// Qt would end the process with a core dump.
bool HasDisplay() {
  for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

/// The title of the boxes, also before there are any words.
std::string Title() {
  const std::string text = tavrin::ResText(1);
  return text.empty() ? "Tavrin" : text;
}

int RunEditor(const std::string& words, tavrin::QtWords& qtWords, tavrin::QtDesktop& desktop) try {
  const tavrin::Machine machine(desktop, nullptr, tavrin::Wording::English, tavrin::ApplicationDirectory());
  tavrin::frmOPC window(words);
  const tavrin::FormView view(window, qtWords);
  window.Form_Load();
  if (desktop.Ended()) return 0;
  return window.Visible() ? QApplication::exec() : 1;
} catch (const tavrin::RuntimeError& error) {
  desktop.ShowBox(error.Description());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  tavrin::PrepareProcess();
  if (!HasDisplay()) {
    std::fputs("tavrin: there is no display (DISPLAY and WAYLAND_DISPLAY are not set)\n", stderr);
    return 1;
  }
  const std::string words = Words(argc, argv);
  tavrin::Application application(argc, argv);
  QApplication::setWindowIcon(tavrin::IconOf("TAVRIN"));
  // Only the program itself ends the process.
  QApplication::setQuitOnLastWindowClosed(false);
  tavrin::QtWords qtWords([] { return tavrin::LanguageName(tavrin::modMain::globals.gnLanguage); });
  tavrin::QtDesktop desktop(qtWords, Title);
  return RunEditor(words, qtWords, desktop);
}
