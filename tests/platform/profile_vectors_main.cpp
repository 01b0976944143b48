// Runs recorded results of the platform's profile functions against ProfiledFiles. A file of vectors has one JSON
// object a line: the bytes of a file, then operations with the results they must have. Strings stand for bytes, each
// character U+0000 to U+00FF for one.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "platform/RecordingFiles.h"
#include "platform/posix/PosixFiles.h"
#include "platform/profile/ProfiledFiles.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

using Json = nlohmann::json;

std::string Bytes(const Json& text) {
  const auto utf8 = text.get<std::string>();
  std::string bytes;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    const auto first = static_cast<unsigned char>(utf8[at]);
    if (first < 0x80) {
      bytes += utf8[at];
    } else if ((first & 0xFCU) == 0xC0U && at + 1 < utf8.size()) {  // U+0080 to U+00FF
      const auto second = static_cast<unsigned char>(utf8[++at]);
      bytes += static_cast<char>(((first & 3U) << 6U) | (second & 0x3FU));
    } else {
      throw std::runtime_error("a character behind U+00FF: " + utf8);
    }
  }
  return bytes;
}

/// A text that may be null or left out.
std::optional<std::string> OptionalBytes(const Json& object, const char* name) {
  if (!object.contains(name) || object[name].is_null()) return std::nullopt;
  return Bytes(object[name]);
}

/// Who does the plain file operations between the profile operations.
enum class PlainBy { SameObject, Stranger };

/// One vector, run on a file of its own.
class VectorRun {
 public:
  VectorRun(const Json& vector, PlainBy plainBy)
      : vector_(vector),
        compared_(vector.at("nt") != "open"),
        guarded_(posix_),
        profiled_(guarded_),
        plain_(plainBy == PlainBy::SameObject ? static_cast<Files&>(profiled_) : guarded_) {
    const std::string where = vector.value("path", "");
    path_ = folder_.Path() + (where == "missing-dir" ? "missing/vector.ini" : "vector.ini");
    if (where == "directory") std::filesystem::create_directory(path_);
    if (const auto file = OptionalBytes(vector, "file")) Put(*file);
  }

  void All() {
    std::size_t number = 0;
    for (const Json& operation : vector_.at("ops")) {
      SCOPED_TRACE("operation " + std::to_string(++number) + ": " + operation.dump());
      One(operation);
    }
  }

 private:
  void One(const Json& operation) {
    const std::string name = operation.at("op");
    const Json& expected = operation.contains("nt") ? operation["nt"] : operation;
    if (name == "write") return Write(operation, expected);
    if (name == "get" || name == "names" || name == "section") return List(name, operation, expected);
    Flush();
    if (name == "dump") return Dump(expected);
    if (name == "raw") return Put(Bytes(operation.at("bytes")));
    if (name == "append") return plain_.Append(path_, Bytes(operation.at("bytes")));
    if (name == "delete") return plain_.Remove(path_);
    if (name == "readonly") return ReadOnly(operation.at("on"));
    FAIL() << "unknown operation";
  }

  /// A file attribute would not stop a privileged user.
  void ReadOnly(bool on) { guarded_.refuse = on ? std::optional(ErrorNumber::PathFileAccess) : std::nullopt; }

  /// A stranger sees only what has reached the disk.
  void Flush() { EXPECT_EQ(profiled_.WriteString({}, {}, {}, path_), ProfileError::None); }

  void Put(const std::string& bytes) { plain_.Create(path_)->Write(bytes); }

  void Dump(const Json& expected) {
    std::optional<std::string> found;
    if (plain_.Status(path_) && !plain_.Status(path_)->directory) found = plain_.ReadAll(path_);
    if (!compared_) return;
    EXPECT_EQ(found, OptionalBytes(expected, "bytes"));
  }

  void Write(const Json& operation, const Json& expected) {
    const auto section = OptionalBytes(operation, "section");
    const auto key = OptionalBytes(operation, "key");
    const auto value = OptionalBytes(operation, "value");
    const ProfileError error = profiled_.WriteString(section, key, value, path_);
    if (!compared_) return;
    EXPECT_EQ(error == ProfileError::None ? 1 : 0, expected.at("ret"));
    EXPECT_EQ(static_cast<int>(error), expected.value("err", 0));
  }

  std::size_t Answer(const std::string& name, const Json& operation, std::vector<char>& buffer) {
    const auto section = OptionalBytes(operation, "section");
    if (name == "names") return profiled_.GetSectionNames(buffer, path_);
    if (name == "section") return profiled_.GetSection(section, buffer, path_);
    const auto key = OptionalBytes(operation, "key");
    const auto fallback = OptionalBytes(operation, "default");
    return profiled_.GetString(section, key, fallback, buffer, path_);
  }

  void List(const std::string& name, const Json& operation, const Json& expected) {
    constexpr char kUntouched = '\x5A';
    std::vector<char> buffer(operation.at("size").get<std::size_t>(), kUntouched);
    const std::size_t count = Answer(name, operation, buffer);
    ASSERT_LE(count, buffer.size());
    if (!compared_) return;
    EXPECT_EQ(count, expected.at("ret").get<std::size_t>());
    EXPECT_EQ(std::string(buffer.data(), count), Bytes(expected.at("buf")));
    std::string behind(buffer.begin() + static_cast<std::ptrdiff_t>(count), buffer.end());
    std::string expectedBehind(behind.size(), kUntouched);
    const auto nuls = expected.at("nul").get<std::size_t>();
    ASSERT_LE(nuls, expectedBehind.size());
    std::fill_n(expectedBehind.begin(), nuls, '\0');
    EXPECT_EQ(behind, expectedBehind) << "the bytes behind the answer";
  }

  const Json& vector_;
  bool compared_;
  TemporaryDirectory folder_;
  PosixFiles posix_;
  RecordingFiles guarded_;
  ProfiledFiles profiled_;
  Files& plain_;
  std::string path_;
};

class VectorTest : public testing::Test {
 public:
  explicit VectorTest(const Json& vector) : vector_(vector) {}

  void TestBody() override {
    SCOPED_TRACE(vector_.value("title", ""));
    for (const PlainBy plainBy : {PlainBy::SameObject, PlainBy::Stranger}) {
      SCOPED_TRACE(plainBy == PlainBy::SameObject ? "plain operations by the same object" : "... by another program");
      VectorRun(vector_, plainBy).All();
    }
  }

 private:
  const Json& vector_;
};

/// A filter takes a hyphen for the begin of what it leaves out.
std::string TestName(std::string text) {
  std::replace(text.begin(), text.end(), '-', '_');
  return text;
}

std::vector<Json> ReadVectors(const std::string& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".jsonl") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  std::vector<Json> vectors;
  for (const auto& path : files) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    for (std::string line; std::getline(file, line);) {
      if (!line.empty()) vectors.push_back(Json::parse(line));
    }
  }
  if (vectors.empty()) throw std::runtime_error("no vectors (*.jsonl) in " + folder);
  return vectors;
}

void RegisterTests(const std::vector<Json>& vectors) {
  for (const Json& vector : vectors) {
    const std::string group = "Profile_" + TestName(vector.at("group"));
    testing::RegisterTest(group.c_str(), TestName(vector.at("id")).c_str(), nullptr, nullptr, __FILE__, __LINE__,
                          [&vector]() -> testing::Test* { return new VectorTest(vector); });
  }
}

std::string FolderOf(int count, char** arguments) {
  std::string folder = "../shared/profile";
  for (int at = 1; at < count; ++at) {
    if (std::string_view(arguments[at]) != "--vectors" || at + 1 == count) {
      throw std::runtime_error("usage: profile_vectors_test [--vectors DIR]");
    }
    folder = arguments[++at];
  }
  return folder;
}

}  // namespace
}  // namespace tavrin

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::vector<tavrin::Json> vectors;
  try {
    vectors = tavrin::ReadVectors(tavrin::FolderOf(argc, argv));
    tavrin::RegisterTests(vectors);
  } catch (const std::exception& error) {
    std::cerr << "profile_vectors_test: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
  return RUN_ALL_TESTS();
}
