// The editor's window on a screen against what it cannot do without: an empty window, a load without a window. Each run
// prints what it measured; the figures stand in README.md. Needs a display, e.g. that of xvfb-run.

#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QScrollBar>
#include <QSplitter>
#include <QTableWidget>
#include <QTimer>
#include <QTreeWidget>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "PlantGenerator.h"
#include "app/Machine.h"
#include "app/editor/Application.h"
#include "model/ProjectLoad.h"
#include "model/cOPC.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/headless/MemorySettings.h"
#include "platform/qt/FormView.h"
#include "platform/qt/GridView.h"
#include "platform/qt/QtWords.h"
#include "shell/frmOPC.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

/// Ends the process at once when a window has been painted: what a start costs is then the life of the process.
class EndAtFirstPaint : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched->isWidgetType()) QTimer::singleShot(0, [] { std::_Exit(0); });
    return false;
  }
};

/// What any such program has: a menu, a tree, a table.
int StartEmptyWindow() {
  QMainWindow window;
  window.menuBar()->addMenu("File")->addAction("Quit");
  auto* const splitter = new QSplitter(&window);
  auto* const tree = new QTreeWidget(splitter);
  tree->addTopLevelItem(new QTreeWidgetItem(QStringList("Root")));
  splitter->addWidget(tree);
  splitter->addWidget(new QTableWidget(10, 10, splitter));
  window.setCentralWidget(splitter);
  window.resize(800, 640);
  window.show();
  return QApplication::exec();
}

/// The editor with settings of its own and a desktop that asks nobody.
struct Editor {
  HeadlessDesktop desktop;
  MemorySettings settings;
  Machine machine{desktop, &settings, Wording::English, ApplicationDirectory()};
  QtWords words{[] { return std::string("en"); }};
  frmOPC window{""};
  FormView view{window, words};

  Editor() { window.Form_Load(); }

  /// Lets everything that is due be painted.
  void Paint() {
    view.repaint();
    QApplication::processEvents();
  }
};

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

constexpr int kRuns = 5;

/// From the answer of the dialog to the painted tree, beside the same load without a window.
int MeasureOpening(std::int64_t tags) {
  const TemporaryDirectory directory;
  const GeneratedProject project = GenerateProject(directory.Path(), tags);
  Editor editor;
  editor.Paint();
  std::vector<double> plain;
  std::vector<double> shown;
  for (int run = 0; run <= kRuns; ++run) {
    modMain::globals.gOPC.reset();
    const double load = Milliseconds([&] { LoadProject(project.rootFile); });
    modMain::globals.gOPC.reset();
    const double open = Milliseconds([&] {
      editor.window.commands.OPCProjectLoadFromDisk(project.rootFile);
      editor.Paint();
    });
    if (run == 0) continue;  // a warm-up
    plain.push_back(load);
    shown.push_back(open);
  }
  std::printf("open %lld tags: load %.1f ms, opened and painted %.1f ms, ratio %.2f\n", static_cast<long long>(tags),
              Median(plain), Median(shown), Median(shown) / Median(plain));
  return 0;
}

/// A click on a device, and scrolling through its tags.
int MeasureDevice(std::int64_t tags) {
  constexpr std::int64_t kDevices = 10;
  const TemporaryDirectory directory;
  const GeneratedProject project = GenerateProject(directory.Path(), tags * kDevices);
  Editor editor;
  editor.window.commands.OPCProjectLoadFromDisk(project.rootFile);
  editor.Paint();
  std::vector<double> clicks;
  for (int run = 0; run <= kRuns; ++run) {
    TreeNode* const node = editor.window.tvwMain.Node(run % 2 == 0 ? "#1#1#1" : "#1#1#2");
    if (node == nullptr) return 1;
    const double click = Milliseconds([&] {
      editor.window.tvwMain.UserPress(MouseButton::Left, node);
      editor.Paint();
    });
    if (run > 0) clicks.push_back(click);
  }
  std::printf("click on a device of %lld tags: painted after %.1f ms\n", static_cast<long long>(tags), Median(clicks));

  std::vector<double> steps;
  auto* const grid = dynamic_cast<GridView*>(editor.view.Views().WidgetOf(editor.window.vsgTags));
  if (grid == nullptr) return 1;
  constexpr int kSteps = 300;
  for (int step = 0; step < kSteps; ++step) {
    steps.push_back(Milliseconds([&] {
      grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->maximum() / kSteps * step);
      editor.Paint();
    }));
  }
  std::printf("scroll step: median %.1f ms, longest %.1f ms\n", Median(steps),
              *std::max_element(steps.begin(), steps.end()));
  return 0;
}

int Usage() {
  std::fputs("Usage: window_bench start-empty | start-editor | open TAGS | device TAGS\n", stderr);
  return 2;
}

int RunBench(int argc, char** argv) {
  const std::string_view what = argc > 1 ? argv[1] : "";
  const std::int64_t tags = argc > 2 ? std::strtoll(argv[2], nullptr, 10) : 0;
  Application application(argc, argv);
  if (what == "open" && tags > 0) return MeasureOpening(tags);
  if (what == "device" && tags > 0) return MeasureDevice(tags);
  EndAtFirstPaint end;
  QApplication::instance()->installEventFilter(&end);
  if (what == "start-empty") return StartEmptyWindow();
  if (what == "start-editor") {
    const Editor editor;
    return QApplication::exec();
  }
  return Usage();
}

}  // namespace
}  // namespace tavrin

int main(int argc, char** argv) {
  tavrin::PrepareProcess();
  return tavrin::RunBench(argc, argv);
}
