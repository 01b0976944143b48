// What it costs to watch tags: tavrinctl against a client that does nothing but print what it is told, one after the
// other. Counted is the processor time of each whole process, with its start.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <fcntl.h>
#include <fmt/format.h>
#include <open62541/client_config_default.h>
#include <open62541/client_highlevel.h>
#include <open62541/client_subscriptions.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "PlantGenerator.h"
#include "sim/SimProcess.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::int64_t kTags = 1'000;
constexpr const char* kInterval = "100";  // milliseconds between two changes of a tag
constexpr double kPublishing = 100;

// ---- the baseline

UA_Logger silence{nullptr, nullptr, nullptr};

void PrintValue(UA_Client*, UA_UInt32, void*, UA_UInt32, void* name, UA_DataValue* value) {
  std::int64_t number = 0;
  if (value->hasValue && value->value.type == &UA_TYPES[UA_TYPES_UINT16]) {
    number = *static_cast<const UA_UInt16*>(value->value.data);
  } else if (value->hasValue && value->value.type == &UA_TYPES[UA_TYPES_INT16]) {
    number = *static_cast<const UA_Int16*>(value->value.data);
  }
  std::printf("%s\t%lld\t%u\t%lld\n", static_cast<const char*>(name), static_cast<long long>(number),
              static_cast<unsigned>(value->status), static_cast<long long>(value->sourceTimestamp));
}

bool Monitor(UA_Client* client, std::vector<std::string>& names) {
  UA_CreateSubscriptionRequest wanted = UA_CreateSubscriptionRequest_default();
  wanted.requestedPublishingInterval = kPublishing;
  const auto made = UA_Client_Subscriptions_create(client, wanted, nullptr, nullptr, nullptr);
  std::vector<UA_MonitoredItemCreateRequest> items;
  std::vector<void*> contexts;
  for (std::string& name : names) {
    items.push_back(UA_MonitoredItemCreateRequest_default(UA_NODEID_STRING(2, name.data())));
    items.back().requestedParameters.samplingInterval = kPublishing;
    contexts.push_back(name.data());
  }
  std::vector<UA_Client_DataChangeNotificationCallback> callbacks(names.size(), PrintValue);
  std::vector<UA_Client_DeleteMonitoredItemCallback> ends(names.size(), nullptr);
  UA_CreateMonitoredItemsRequest request;
  UA_CreateMonitoredItemsRequest_init(&request);
  request.subscriptionId = made.subscriptionId;
  request.timestampsToReturn = UA_TIMESTAMPSTORETURN_BOTH;
  request.itemsToCreate = items.data();
  request.itemsToCreateSize = items.size();
  auto response =
      UA_Client_MonitoredItems_createDataChanges(client, request, contexts.data(), callbacks.data(), ends.data());
  const bool good = response.responseHeader.serviceResult == UA_STATUSCODE_GOOD;
  UA_CreateMonitoredItemsResponse_clear(&response);
  return good;
}

/// The baseline as a process of its own: subscribes to the items that a file names, and prints what comes.
int Subscribe(const std::string& url, const std::string& itemsFile, double seconds) {
  std::ifstream in(itemsFile);
  std::vector<std::string> names{std::istream_iterator<std::string>(in), {}};
  UA_ClientConfig config{};
  config.logging = &silence;
  UA_ClientConfig_setDefault(&config);
  UA_Client* const client = UA_Client_newWithConfig(&config);
  if (UA_Client_connect(client, url.c_str()) != UA_STATUSCODE_GOOD || !Monitor(client, names)) return EXIT_FAILURE;
  const auto end = Clock::now() + std::chrono::duration<double>(seconds);
  while (Clock::now() < end) UA_Client_run_iterate(client, static_cast<UA_UInt32>(kPublishing));
  UA_Client_disconnect(client);
  UA_Client_delete(client);
  return EXIT_SUCCESS;
}

// ---- the measuring

struct Run {
  double processorTime = 0;  ///< seconds
  long peak = 0;             ///< KiB
  std::int64_t lines = 0;
  std::int64_t bytes = 0;
  std::string problem;  ///< how it ended, unless well
};

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

/// Runs a program to its end, with its output in a file.
Run Measure(std::vector<std::string> command, const std::string& outputFile) {
  std::vector<char*> words;
  for (std::string& word : command) words.push_back(word.data());
  words.push_back(nullptr);
  const pid_t process = fork();
  if (process == 0) {
    dup2(open(outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
    execv(words.front(), words.data());
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  wait4(process, &status, 0, &usage);
  Run run;
  if (WIFSIGNALED(status)) run.problem = fmt::format("  ended by signal {}", WTERMSIG(status));
  if (WIFEXITED(status) && WEXITSTATUS(status) != 0) run.problem = fmt::format("  exit status {}", WEXITSTATUS(status));
  run.processorTime = Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
  run.peak = usage.ru_maxrss;
  std::ifstream in(outputFile, std::ios::binary);
  run.lines = std::count(std::istreambuf_iterator<char>(in), {}, '\n');
  run.bytes = static_cast<std::int64_t>(std::filesystem::file_size(outputFile));
  return run;
}

double PerLine(const Run& run) { return run.processorTime / static_cast<double>(std::max<std::int64_t>(run.lines, 1)); }

void Tell(const std::string& who, const Run& run, double seconds) {
  fmt::print("{:<10} {:6.0f} lines/s {:6.0f} KB/s {:7.2f} ms/s {:6.2f} us/line {:6} KiB peak{}\n", who,
             static_cast<double>(run.lines) / seconds, static_cast<double>(run.bytes) / 1000 / seconds,
             run.processorTime / seconds * 1e3, PerLine(run) * 1e6, run.peak, run.problem);
  std::fflush(stdout);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

/// A plant with its server, and an installation of tavrinctl that knows it.
class Plant {
 public:
  Plant()
      : project_(GenerateProject(directory_.Path(), kTags)),
        server_(project_.rootFile, {"--all-good", "--interval", kInterval}) {
    url_ = SimProcess::UrlOf(server_.NextLine());
    std::filesystem::copy_file(TAVRINCTL, directory_.Path() + "tavrinctl");
    std::filesystem::copy(TAVRIN_SOURCE_DIR "/texts", directory_.Path() + "texts");
    std::ofstream(directory_.Path() + "Tavrin.INI")
        << "[Servers]\nZelkar.OPCServer.1=" << url_ << "\nQorvane.OPCServer.1=" << url_ << "\n";
    WriteItems();
  }

  [[nodiscard]] Run Baseline(const std::string& self, double seconds) const {
    return Measure({self, "subscribe", url_, directory_.Path() + "items", fmt::to_string(seconds)}, Output());
  }
  [[nodiscard]] Run Watch(double seconds, bool json) const {
    std::vector<std::string> command{directory_.Path() + "tavrinctl", "watch", project_.rootFile};
    for (const std::string& file : project_.tagFiles) command.push_back(DeviceOf(file));
    command.insert(command.end(), {"--seconds", fmt::to_string(seconds)});
    if (json) command.emplace_back("--json");
    return Measure(command, Output());
  }

 private:
  static std::string DeviceOf(const std::string& tagFile) { return std::filesystem::path(tagFile).stem().string(); }
  [[nodiscard]] std::string Output() const { return directory_.Path() + "output"; }
  void WriteItems() const {
    std::ofstream items(directory_.Path() + "items");
    for (const std::string& file : project_.tagFiles) {
      std::ifstream in(file);
      for (std::string line; std::getline(in, line);)
        items << DeviceOf(file) << '/' << line.substr(0, line.find(';')) << '\n';
    }
  }

  TemporaryDirectory directory_;
  GeneratedProject project_;
  SimProcess server_;
  std::string url_;
};

/// Each run has a server of its own, so that none finds what another has left behind.
int CompareAll(const std::string& self, double seconds, int rounds) {
  std::vector<double> ratios;
  for (int round = 0; round < rounds; ++round) {
    const Run baseline = Plant().Baseline(self, seconds);
    Tell("baseline", baseline, seconds);
    const Run json = Plant().Watch(seconds, true);
    Tell("json", json, seconds);
    Tell("text", Plant().Watch(seconds, false), seconds);
    if (!baseline.problem.empty() || !json.problem.empty()) return EXIT_FAILURE;
    ratios.push_back(PerLine(json) / PerLine(baseline));
  }
  std::array<double, 3> load{};
  getloadavg(load.data(), static_cast<int>(load.size()));
  fmt::print("json to baseline, processor time a line, median of {}: {:.2f} (load average {:.1f})\n", rounds,
             Median(ratios), load[0]);
  return EXIT_SUCCESS;
}

int Main(const std::vector<std::string>& words) {
  if (words.size() == 5 && words[1] == "subscribe") return Subscribe(words[2], words[3], std::stod(words[4]));
  return CompareAll("/proc/self/exe", words.size() > 1 ? std::stod(words[1]) : 10,
                    words.size() > 2 ? std::stoi(words[2]) : 3);
}

}  // namespace
}  // namespace tavrin

int main(int argc, char** argv) { return tavrin::Main({argv, argv + argc}); }
