#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileProperties.h"
#include "platform/Programs.h"
#include "platform/Regional.h"
#include "platform/RuntimeError.h"
#include "platform/ServiceControl.h"
#include "platform/Surroundings.h"

namespace tavrin {

/// Starts nothing; keeps what should have been started.
class RecordingPrograms : public Programs {
 public:
  struct Started {
    std::string what;  ///< "text", "document", or the number of the purpose
    std::string path;
    int number = 0;  ///< style of the window, or the page
    friend bool operator==(const Started&, const Started&) = default;
  };

  void Start(Administration purpose, WindowStyle style) override {
    Take(std::to_string(static_cast<int>(purpose)), {}, static_cast<int>(style));
  }
  void ShowText(std::string_view path, WindowStyle style) override {
    Take("text", std::string(path), static_cast<int>(style));
  }
  [[nodiscard]] bool OpenDocument(std::string_view path, int page) override {
    Note({"document", std::string(path), page});
    return !missing;
  }

  std::vector<Started> started;
  bool missing = false;  ///< there is no program for anything
  /// Told of each start as it comes, also while programs are missing.
  std::function<void(const Started& started)> OnStarted;

 private:
  void Take(std::string what, std::string path, int number) {
    Note({std::move(what), std::move(path), number});
    if (missing) throw RuntimeError(ErrorNumber::FileNotFound);
  }
  void Note(Started start) {
    started.push_back(std::move(start));
    if (OnStarted) OnStarted(started.back());
  }
};

/// A clock that stands, a zone with a fixed distance from UTC, German dates and numbers.
class FixedRegional : public Regional {
 public:
  [[nodiscard]] DateTime Now() override { return ToLocal(now); }
  [[nodiscard]] DateTime ToLocal(UtcTime time) override { return Split(time + zone); }
  [[nodiscard]] UtcTime FromLocal(const DateTime& local) override { return Join(local) - zone; }
  [[nodiscard]] std::string ShortDate(const DateTime& date) override;
  [[nodiscard]] std::string LongTime(const DateTime& time) override;
  [[nodiscard]] std::string DecimalSeparator() override { return ","; }
  [[nodiscard]] std::string GroupSeparator() override { return "."; }
  [[nodiscard]] int LanguageId() override { return 1031; }

  UtcTime now = Join({2026, 11, 20, 13, 5, 9, 0});
  std::chrono::hours zone{1};
};

/// Properties that a test gives to files; there are no others.
class MemoryFileProperties : public FileProperties {
 public:
  [[nodiscard]] std::optional<FileRecord> Find(std::string_view path) override;
  bool SetTime(std::string_view path, FileTime which, UtcTime time) override;
  bool SetAttributes(std::string_view path, std::uint32_t attributes) override;
  [[nodiscard]] std::string ShortPath(std::string_view path) override { return std::string(path); }
  [[nodiscard]] std::string TypeName(std::string_view) override { return {}; }

  std::map<std::string, FileRecord, std::less<>> records;
};

/// A service whose calls give the numbers that were set, and count.
class ScriptedService : public ServiceControl {
 public:
  int CmdStopServiceEx() override { return ++stops, Called("stop", stopResult); }
  int CmdStartServiceEx() override { return ++starts, Called("start", startResult); }

  int stopResult = 0;
  int startResult = 0;
  int stops = 0;
  int starts = 0;
  /// Told of each call, "stop" or "start", and of the number that it gives.
  std::function<void(std::string_view call, int result)> OnCalled;

 private:
  int Called(std::string_view call, int result) const {
    if (OnCalled) OnCalled(call, result);
    return result;
  }
};

/// The surroundings of a program that nobody and nothing is around.
struct HeadlessSurroundings {
  RecordingPrograms programs;
  FixedRegional regional;
  MemoryFileProperties fileProperties;
  ScriptedService service;
  Surroundings all{programs, regional, fileProperties, service, nullptr};
};

}  // namespace tavrin
