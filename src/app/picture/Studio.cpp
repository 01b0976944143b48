#include "app/picture/Studio.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QPixmap>
#include <array>
#include <filesystem>
#include <fstream>

#include "brand/Brand.h"
#include "model/cOPC.h"
#include "model/shared/cWarnings.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"
#include "platform/qt/DialogView.h"
#include "platform/qt/Text.h"

namespace tavrin {

namespace {

namespace fs = std::filesystem;

constexpr std::array kProgramFiles{"tavrin", "tavrinctl", "tavrin-sim", "OPC_D.PDF", "OPC_E.PDF"};
/// In the directory of the sample, but none of it.
constexpr std::array kStrayFiles{"Anlagenplan.txt", "Brunnen_4.csv", "Chemie.bak"};
constexpr int kTitleHeight = 28;

void MakeFile(const fs::path& file) { std::ofstream(file).put('\n'); }

/// A project with something to warn of: a file is gone, two settings and two lines of tags are bad.
void MakeFaulty(const fs::path& sample, const fs::path& faulty) {
  fs::copy(sample, faulty);
  fs::remove(faulty / "Labor.csv");
  std::ofstream(faulty / "Leitnetz.ini", std::ios::app)
      << "[Messstelle]\r\nPLCType=S7\r\nSlotNo=300\r\nMaxPDUSize=500\r\n"
         "RemoteIPAddress=192.168.10.30\r\nVariables=Messstelle.csv\r\n"
         "DynamicTags=RW\r\nCyclicTime=100\r\nSimulation=OFF\r\n"
         "PingEnabled=1\r\n";
  std::ofstream(faulty / "Messstelle.csv") << "Druck;DB1.DBD0;RX\r\nDruck;DB1.DBD4;RO\r\nTemperatur;;RO\r\n";
}

const Services& MachineServices() { return modMain::Platform(); }

QString CaptionOf(const Form& form) { return ToQt(form.Caption()); }

/// A window as a desktop frames it.
QImage Framed(const QPixmap& content, const QString& title) {
  const qreal ratio = content.devicePixelRatio();
  const QSize inside = content.deviceIndependentSize().toSize();
  const int head = title.isEmpty() ? 0 : kTitleHeight;
  const QSize size(inside.width() + 2, inside.height() + head + 2);
  QImage image(size * ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(QColor(0x8a, 0x90, 0x99));
  QPainter painter(&image);
  painter.fillRect(QRect(1, 1, inside.width(), head), QColor(0xdd, 0xe1, 0xe7));
  QFont font = QApplication::font();
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::black);
  painter.drawText(QRect(1, 1, inside.width(), head), Qt::AlignCenter,
                   QFontMetrics(font).elidedText(title, Qt::ElideMiddle, inside.width() - 20));
  painter.drawPixmap(1, 1 + head, content);
  return image;
}

}  // namespace

StudioFiles::StudioFiles() {
  if (!directory_.isValid()) throw RuntimeError(ErrorNumber::PathFileAccess);
  const fs::path from = ApplicationDirectory();
  const fs::path to = Directory();
  for (const char* const folder : {"texts", "INI"}) fs::copy(from / folder, to / folder, fs::copy_options::recursive);
  fs::copy(from / "Tavrin.INI", to / "Tavrin.INI");
  fs::create_directory(to / "LOG");
  MakeFaulty(to / "INI", to / "faulty");
  for (const char* const file : kProgramFiles) MakeFile(to / file);
  for (const char* const file : kStrayFiles) MakeFile(to / "INI" / file);
  fs::current_path(to);
}

std::string StudioFiles::Directory() const { return directory_.path().toStdString() + kPathSeparator; }

Studio::Studio(const StudioFiles& files, std::string language, std::string file, const std::string& words)
    : language_(std::move(language)),
      file_(std::move(file)),
      regional_(language_ == "de"),
      words_([this] { return language_; }) {
  ChooseSettings();
  machine_ = std::make_unique<Machine>(desktop_, &settings_, Wording::English, files.Directory());
  const Services& real = MachineServices();
  still_ = std::make_unique<StillFiles>(real.files);
  properties_ = std::make_unique<StillProperties>(real.around.fileProperties);
  surroundings_ = std::make_unique<Surroundings>(
      Surroundings{around_.programs, regional_, *properties_, around_.service, &servers_});
  services_ = std::make_unique<Services>(Services{desktop_, *still_, real.profiles, real.registry, real.texts,
                                                  real.syntax, settings_, *surroundings_, real.applicationDirectory});
  modMain::globals.services = services_.get();
  words_.Match();
  window_ = std::make_unique<frmOPC>(words);
  view_ = std::make_unique<FormView>(*window_, words_);
  window_->Form_Load();
}

void Studio::ChooseSettings() {
  const std::string application(OemBrand().settingsApplication);
  const auto choose = [&](std::string_view key, std::string_view value) {
    settings_.SaveSetting(application, "Settings", key, value);
  };
  choose("Left", "0");
  choose("Top", "0");
  choose("Width", "12000");
  choose("Height", "8400");
  choose("SplitHorz", "3200");
  choose("SplitVert", "4300");
  choose("Language", std::to_string(language_ == "de" ? kGerman : kEnglish));
}

void Studio::Open(std::string_view project) { window_->commands.OPCProjectLoadFromDisk(std::string(project)); }

void Studio::OpenSample(std::string_view node) {
  Open("INI/ZOPCSRV.ini");
  Select(node);
}

void Studio::Select(std::string_view node) {
  TreeNode* const found = window_->tvwMain.Node(std::string(node));
  if (found == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
  window_->tvwMain.UserSelect(*found);
}

void Studio::ShootDialog(const std::function<void()>& command, const std::function<void(Form&)>& prepare, QSize size) {
  desktop_.OnModal = [&](Form& form) {
    DialogView view(form, nullptr);
    form.Show();
    view.show();
    if (size.isValid()) view.resize(size);
    desktop_.DoEvents();
    if (prepare) prepare(form);
    desktop_.DoEvents();
    Shoot(view, CaptionOf(form));
    form.UserClose();
  };
  command();
  desktop_.OnModal = nullptr;
}

void Studio::Lower() {
  Rect place = window_->Place();
  place.height = 6600;
  window_->UserPlace(place);
}

void Studio::ShootWindow() { Shoot(*view_, CaptionOf(*window_)); }

void Studio::Shoot(QWidget& widget, const QString& title) {
  QApplication::processEvents();
  Frame(widget.grab(), title);
}

void Studio::Frame(const QPixmap& content, const QString& title) {
  if (!Framed(content, title).save(QString::fromStdString(file_))) throw RuntimeError(ErrorNumber::PathFileAccess);
  done_ = true;
}

}  // namespace tavrin
