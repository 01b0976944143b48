#include "shell/LogFiles.h"

#include <array>
#include <string>
#include <string_view>

#include "model/shared/Messages.h"
#include "model/shared/modFiles.h"
#include "model/shared/modMain.h"
#include "platform/Programs.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

struct LogRow {
  LogEntry entry;
  std::string_view file;
};

constexpr std::array kLogs{LogRow{kLog1, "LOG1.TXT"}, LogRow{kLog2, "LOG2.TXT"}};

void ShowLog(std::string_view file) {
  const Services& services = modMain::Platform();
  const std::string path = services.applicationDirectory + kPathSeparator + "LOG" + kPathSeparator + std::string(file);
  if (FileExists(path)) {
    services.around.programs.ShowText(path, WindowStyle::Normal);
  } else {
    services.desktop.ShowBox(TextAnd(201, path));
  }
}

}  // namespace

LogFiles::LogFiles(frmOPC& form) {
  form.mnuLog.ForEach([](MenuEntry& entry) { entry.OnClick = [&entry] { mnuLog_Click(entry.Index()); }; });
}

void LogFiles::mnuLog_Click(int index) {
  for (const LogRow& row : kLogs) {
    if (row.entry == index) ShowLog(row.file);
  }
}

}  // namespace tavrin
