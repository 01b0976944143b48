#include "app/picture/Scenes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <array>

#include "app/picture/Studio.h"
#include "model/shared/modText.h"
#include "online/frmReconfig.h"
#include "online/frmTest.h"
#include "platform/qt/MenuView.h"
#include "platform/qt/Text.h"
#include "shell/frmCreate.h"
#include "tools/frmFileInfo.h"

namespace tavrin {

namespace {

// Nodes of the sample.
constexpr std::string_view kRoot = "#1";
constexpr std::string_view kIsoNetwork = "#1#3";
constexpr std::string_view kIsoDevice = "#1#3#3";
constexpr std::string_view kTestDevice = "#1#3#4";
constexpr std::string_view kRwDevice = "#1#4#1";
constexpr std::string_view kH1Device = "#1#5#1";

void Device(Studio& studio) {
  studio.OpenSample(kIsoDevice);
  studio.ShootWindow();
}

void H1Device(Studio& studio) {
  studio.OpenSample(kH1Device);
  studio.ShootWindow();
}

void Network(Studio& studio) {
  studio.Lower();
  studio.OpenSample(kIsoNetwork);
  studio.ShootWindow();
}

void Project(Studio& studio) {
  studio.Lower();
  studio.OpenSample(kRoot);
  studio.ShootWindow();
}

void Tags(Studio& studio) {
  studio.OpenSample(kRwDevice);
  studio.Window().vsgTags.UserSelect({5, 9});
  studio.ShootWindow();
}

void Warnings(Studio& studio) {
  studio.Lower();
  studio.Desktop().AnswerNext(true);
  studio.Open("faulty/ZOPCSRV.ini");
  studio.ShootWindow();
}

/// The parts of the window with their numbers in the text.
void Parts(Studio& studio) {
  studio.OpenSample(kIsoDevice);
  QApplication::processEvents();
  const frmOPC& window = studio.Window();
  QPixmap picture = studio.View().grab();
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  int number = 1;
  const Control* const parts[] = {&window.Toolbar1, &window.tvwMain, &window.vsgTCPISODVC, &window.vsgTags};
  for (const Control* part : parts) {
    const QWidget* const widget = studio.View().Views().WidgetOf(*part);
    const QPoint corner =
        widget->mapTo(&studio.View(), QPoint(widget->width() - 46, std::min(widget->height() / 2, 60) - 13));
    const QRect circle(corner, QSize(26, 26));
    painter.setBrush(QColor(0xc0, 0x39, 0x2b));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(circle);
    painter.setPen(Qt::white);
    painter.drawText(circle, Qt::AlignCenter, QString::number(number++));
  }
  painter.end();
  studio.Frame(picture, ToQt(window.Caption()));
}

/// A menu of the menu bar, opened.
void Menu(Studio& studio, std::string_view node, std::size_t position) {
  studio.OpenSample(node);
  MenuView* const menu = studio.View().Menus().at(position);
  menu->popup(QPoint(0, 0));
  studio.Shoot(*menu, {});
  menu->hide();
}

void FileMenu(Studio& studio) { Menu(studio, kRoot, 0); }
void EditMenu(Studio& studio) { Menu(studio, kIsoNetwork, 1); }
void ExtrasMenu(Studio& studio) { Menu(studio, kRoot, 2); }
void HelpMenu(Studio& studio) { Menu(studio, kRoot, 3); }

void CreateNetwork(Studio& studio) {
  studio.OpenSample(kRoot);
  studio.ShootDialog([&] { studio.Window().mnuEdit(kEditAddNetwork).UserClick(); },
                     [](Form& form) {
                       auto& dialog = dynamic_cast<frmCreate&>(form);
                       dialog.txtName.UserText("Pumpwerk");
                       dialog.rbType(2).UserClick();
                     });
}

void CreateDevice(Studio& studio) {
  studio.OpenSample(kIsoNetwork);
  studio.ShootDialog([&] { studio.Window().mnuEdit(kEditAddDevice).UserClick(); },
                     [](Form& form) { dynamic_cast<frmCreate&>(form).txtName.UserText("Pumpe_4"); });
}

void Options(Studio& studio) {
  studio.ShootDialog([&] { studio.Window().mnuExtras(kExtrasOptions).UserClick(); });
}

void Info(Studio& studio) {
  studio.ShootDialog([&] { studio.Window().mnuHelp(kHelpAbout).UserClick(); });
}

void CleanUp(Studio& studio) {
  studio.OpenSample(kRoot);
  studio.ShootDialog([&] { studio.Window().mnuExtras(kExtrasCleanUp).UserClick(); });
}

void FileVersions(Studio& studio) {
  studio.ShootDialog([&] { studio.Window().mnuHelp(kHelpVersions).UserClick(); },
                     [](Form& form) {
                       dynamic_cast<frmFileInfo&>(form).vsgFileInfo.UserSelect({1, 0});
                     },
                     {560, 420});
}

void Reconfigure(Studio& studio) {
  studio.OpenSample(kRoot);
  studio.ShootDialog([&] { studio.Window().mnuExtras(kExtrasReconfigure).UserClick(); },
                     [](Form& form) { dynamic_cast<frmReconfig&>(form).cmdAction(0).UserClick(); });
}

void Online(Studio& studio) {
  studio.OpenSample(kIsoDevice);
  studio.Window().vsgTags.UserSelect({4, 1});
  studio.ShootDialog([&] { studio.Window().mnuTest(1).UserClick(); });
}

void TestRun(Studio& studio) {
  constexpr int kTicks = 8;  // one cycle and the end
  studio.OpenSample(kTestDevice);
  studio.ShootDialog([&] { studio.Window().mnuEdit(kEditTest).UserClick(); },
                     [&](Form& form) {
                       auto& test = dynamic_cast<frmTest&>(form);
                       test.cmdStart.UserClick();
                       for (int tick = 0; tick < kTicks; ++tick) {
                         test.Timer1.Elapse();
                         studio.Desktop().DoEvents();
                       }
                     },
                     {820, 520});
}

/// What the program says when a value is refused.
void Message(Studio& studio) {
  studio.OpenSample(kIsoDevice);
  Grid& sheet = studio.Window().vsgTCPISODVC;
  sheet.UserSelect({2, 1});
  sheet.UserType("300");
  sheet.UserEndEdit();
  QMessageBox box(QMessageBox::Information, QString(), ToQt(studio.Desktop().TakeBoxes().front()), QMessageBox::Ok);
  box.show();
  studio.Shoot(box, ToQt(ResText(1)));
}

constexpr std::array kScenes{
    Scene{"device", Device},
    Scene{"main_parts", Parts},
    Scene{"network", Network},
    Scene{"project", Project},
    Scene{"device_h1", H1Device},
    Scene{"tags", Tags},
    Scene{"warnings", Warnings},
    Scene{"menu_file", FileMenu},
    Scene{"menu_edit", EditMenu},
    Scene{"menu_extras", ExtrasMenu, "-TEST"},
    Scene{"menu_help", HelpMenu},
    Scene{"create_network", CreateNetwork},
    Scene{"create_device", CreateDevice},
    Scene{"options", Options},
    Scene{"info", Info},
    Scene{"settle", CleanUp},
    Scene{"fileinfo", FileVersions},
    Scene{"reconfig", Reconfigure, "-TEST"},
    Scene{"online", Online},
    Scene{"test", TestRun, "-TEST"},
    Scene{"message", Message},
};

}  // namespace

std::span<const Scene> Scenes() { return kScenes; }

}  // namespace tavrin
