// Load and save of whole projects against a plain baseline on the same files, in one run. Times are those of the work
// alone: what a run leaves behind is taken down outside of the measured time, for both sides alike.

#include <chrono>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "PlantGenerator.h"
#include "app/ctl/Host.h"
#include "model/ProjectLoad.h"
#include "model/cOPC.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

/// The generated project of a size, made once a run.
const GeneratedProject& ProjectOf(std::int64_t tags) {
  static std::map<std::int64_t, std::pair<std::unique_ptr<TemporaryDirectory>, GeneratedProject>> made;
  auto& entry = made[tags];
  if (!entry.first) {
    entry.first = std::make_unique<TemporaryDirectory>();
    entry.second = GenerateProject(entry.first->Path(), tags);
  }
  return entry.second;
}

template <class Work>
void Measure(benchmark::State& state, const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

void CountTags(benchmark::State& state) { state.SetItemsProcessed(state.iterations() * state.range(0)); }

std::size_t HeapInUse() {
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void ReadNames(const std::string& content, std::unordered_set<std::string_view>& names, std::size_t& fields) {
  std::string_view rest = content;
  while (!rest.empty()) {
    const std::size_t end = rest.find("\r\n");
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 2);
    names.insert(line.substr(0, line.find(';')));
    std::size_t separator = 0;
    while ((separator = line.find(';')) != std::string_view::npos) {
      benchmark::DoNotOptimize(line.substr(0, separator));
      line.remove_prefix(separator + 1);
      ++fields;
    }
  }
}

/// Reads the tag files, splits their lines at ";" into views and puts the names into a set.
void LoadBaseline(benchmark::State& state) {
  const GeneratedProject& project = ProjectOf(state.range(0));
  PosixFiles files;
  for (auto _ : state) {
    std::vector<std::string> contents;
    std::unordered_set<std::string_view> names;
    std::size_t fields = 0;
    Measure(state, [&] {
      for (const std::string& file : project.tagFiles) {
        contents.push_back(files.ReadAll(file));
        ReadNames(contents.back(), names, fields);
      }
    });
    benchmark::DoNotOptimize(fields);
  }
  CountTags(state);
}

void Load(benchmark::State& state) {
  const GeneratedProject& project = ProjectOf(state.range(0));
  Host host(Wording::Numbers, "");
  for (auto _ : state) {
    modMain::globals.gOPC.reset();
    const std::size_t before = HeapInUse();
    Measure(state, [&] { LoadProject(project.rootFile); });
    state.counters["bytes_a_tag"] = static_cast<double>(HeapInUse() - before) / static_cast<double>(state.range(0));
  }
  CountTags(state);
}

/// Writes the bytes of the tag files, which lie in memory, in one piece each over the files of the last run.
void SaveBaseline(benchmark::State& state) {
  const GeneratedProject& project = ProjectOf(state.range(0));
  PosixFiles files;
  std::vector<std::string> contents;
  for (const std::string& file : project.tagFiles) contents.push_back(files.ReadAll(file));
  const TemporaryDirectory to;
  for (auto _ : state) {
    Measure(state, [&] {
      for (std::size_t i = 0; i < contents.size(); ++i) {
        const std::string path = to.Path() + std::to_string(i);
        if (files.Status(path)) files.Remove(path);
        files.Create(path)->Write(contents[i]);
      }
    });
  }
  CountTags(state);
}

void Save(benchmark::State& state) {
  const GeneratedProject& project = ProjectOf(state.range(0));
  Host host(Wording::Numbers, "");
  LoadProject(project.rootFile);
  const TemporaryDirectory to;
  modMain::globals.gszProjectDir = to.Path();
  for (auto _ : state) {
    Measure(state, [&] {
      bool bOK = false;
      modMain::OpenProject().UpdateAll(false, bOK);
      if (!bOK) state.SkipWithError("the project could not be written");
    });
  }
  CountTags(state);
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->RangeMultiplier(10)->Range(10'000, 1'000'000)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(LoadBaseline)->Apply(Sizes);
BENCHMARK(Load)->Apply(Sizes);
BENCHMARK(SaveBaseline)->Apply(Sizes);
BENCHMARK(Save)->Apply(Sizes);

}  // namespace
}  // namespace tavrin

BENCHMARK_MAIN();
