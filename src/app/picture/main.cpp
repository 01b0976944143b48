// Draws the windows without a screen into pictures, for the documentation and for machines without a display.
#include <QApplication>
#include <QPalette>
#include <QPixmap>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <CLI/CLI.hpp>

#include "app/Machine.h"
#include "app/editor/Application.h"
#include "app/picture/Scenes.h"
#include "app/picture/Studio.h"
#include "brand/Brand.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/headless/MemorySettings.h"
#include "platform/qt/FormView.h"
#include "platform/qt/QtWords.h"
#include "shell/frmOPC.h"

namespace {

using tavrin::frmOPC;

struct Request {
  std::string picture;
  std::string project;
  std::string language = "en";
  std::string font = "8";
  std::string node;
  std::string width = "12000";
  std::string height = "10000";
  std::string tree = "3200";
  std::string tags = "5000";
  std::string scale = "1";
  std::string manual;  // folder for the pictures of the manual
  std::string scene;
  bool dark = false;
  bool warnings = false;
  bool test = false;
};

Request ReadCommandLine(CLI::App& app, int argc, char** argv) {
  Request request;
  app.add_option("PICTURE", request.picture, "the picture to write, e.g. tavrin.png");
  app.add_option("--project", request.project, "root file of a project to open");
  app.add_option("--language", request.language, "language of the window")->check(CLI::IsMember({"de", "en"}));
  app.add_option("--font", request.font, "size of the font in points")->check(CLI::IsMember({"8", "12"}));
  app.add_option("--node", request.node, "key of the node to select in the tree, e.g. #1#2");
  app.add_option("--width", request.width, "width of the window in twips, 15 a pixel");
  app.add_option("--height", request.height, "height of the window in twips");
  app.add_option("--tree", request.tree, "right edge of the tree in twips");
  app.add_option("--tags", request.tags, "bottom of a device's sheet in twips");
  app.add_option("--scale", request.scale, "pixels of the picture for one of the window, e.g. 1.5");
  app.add_flag("--dark", request.dark, "dark colours");
  app.add_flag("--warnings", request.warnings, "show the warnings that the project has");
  app.add_flag("--test", request.test, "show the window as with the word -TEST");
  app.add_option("--manual", request.manual, "folder to draw all pictures of the manual into")->excludes("PICTURE");
  app.add_option("--scene", request.scene, "the one picture of the manual to draw")->needs("--manual");
  app.parse(argc, argv);
  if (request.picture.empty() && request.manual.empty()) throw CLI::RequiredError("PICTURE");
  return request;
}

void UseDarkColours() {
  const QColor window(0x2b, 0x2d, 0x30);
  const QColor base(0x1e, 0x1f, 0x22);
  const QColor text(0xe6, 0xe6, 0xe6);
  const QColor faint(0x80, 0x82, 0x86);
  QPalette palette(text, window, window.lighter(150), window.darker(150), window.darker(120), text, Qt::white, base,
                   window);
  palette.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xa8));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::AlternateBase, base.lighter(120));
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, faint);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  QApplication::setPalette(palette);
}

void ChooseSettings(tavrin::SettingsStore& settings, const Request& request) {
  const std::string application(tavrin::OemBrand().settingsApplication);
  settings.SaveSetting(application, "Settings", "Left", "0");
  settings.SaveSetting(application, "Settings", "Top", "0");
  settings.SaveSetting(application, "Settings", "Width", request.width);
  settings.SaveSetting(application, "Settings", "Height", request.height);
  settings.SaveSetting(application, "Settings", "SplitHorz", request.tree);
  settings.SaveSetting(application, "Settings", "SplitVert", request.tags);
  settings.SaveSetting(application, "Settings", "Fontsize", request.font);
  settings.SaveSetting(application, "Settings", "Language",
                       std::to_string(request.language == "de" ? tavrin::kGerman : tavrin::kEnglish));
}

std::string ToPath(const std::string& utf8) {
  const auto path = tavrin::FromUtf8(utf8);
  if (!path) throw tavrin::RuntimeError(tavrin::ErrorNumber::PathNotFound);
  return *path;
}

/// Brings on show what the caller wants to see. @return false when there is no such node
bool Prepare(frmOPC& window, tavrin::HeadlessDesktop& desktop, const Request& request) {
  if (!request.project.empty()) {
    if (request.warnings) desktop.AnswerNext(true);
    window.commands.OPCProjectLoadFromDisk(ToPath(request.project));
  }
  if (request.node.empty()) return true;
  tavrin::TreeNode* const node = window.tvwMain.Node(request.node);
  if (node == nullptr) return false;
  window.tvwMain.UserSelect(*node);
  return true;
}

int Draw(const Request& request) {
  tavrin::HeadlessDesktop desktop;
  tavrin::MemorySettings settings;
  ChooseSettings(settings, request);
  const tavrin::Machine machine(desktop, &settings, tavrin::Wording::English, tavrin::ApplicationDirectory());
  tavrin::QtWords words([&request] { return request.language; });
  frmOPC window(request.test ? "-TEST" : "");
  tavrin::FormView view(window, words);
  window.Form_Load();
  const bool found = Prepare(window, desktop, request);
  for (const std::string& box : desktop.TakeBoxes()) std::fprintf(stderr, "%s\n", tavrin::ToUtf8(box).c_str());
  if (desktop.Ended() || !found) {
    std::fputs(found ? "tavrin-picture: the program has ended\n" : "tavrin-picture: there is no such node\n", stderr);
    return 1;
  }
  QApplication::processEvents();
  if (view.grab().save(QString::fromStdString(request.picture))) return 0;
  std::fprintf(stderr, "tavrin-picture: %s cannot be written\n", request.picture.c_str());
  return 1;
}

int DrawScenes(const Request& request) {
  const auto folder = std::filesystem::absolute(request.manual);
  std::filesystem::create_directories(folder);
  const tavrin::StudioFiles files;
  int status = 0;
  for (const tavrin::Scene& scene : tavrin::Scenes()) {
    if (!request.scene.empty() && request.scene != scene.name) continue;
    const std::string name(scene.name);
    tavrin::Studio studio(files, request.language, (folder / (name + ".png")).string(), std::string(scene.words));
    scene.act(studio);
    if (studio.Done()) continue;
    std::fprintf(stderr, "tavrin-picture: nothing was drawn for %s\n", name.c_str());
    for (const std::string& box : studio.Desktop().TakeBoxes())
      std::fprintf(stderr, "  %s\n", tavrin::ToUtf8(box).c_str());
    status = 1;
  }
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  tavrin::PrepareProcess();
  CLI::App app("Draws the windows of Tavrin into pictures.", "tavrin-picture");
  Request request;
  try {
    request = ReadCommandLine(app, argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error);
  }
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("QT_LOGGING_RULES", "default.warning=false", 0);  // a machine without a display lacks more of a desktop
  setenv("QT_SCALE_FACTOR", request.scale.c_str(), 1);
  try {
    tavrin::Application application(argc, argv);
    if (request.dark) UseDarkColours();
    return request.manual.empty() ? Draw(request) : DrawScenes(request);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tavrin-picture: %s\n", error.what());
    return 1;
  }
}
