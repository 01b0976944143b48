// Makes the manual of one language, a PDF file, of its sources, of the pictures taken of the program, and of the texts
// and tables of the program itself. Part of the build; not installed.
#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <CLI/CLI.hpp>

#include "app/Machine.h"
#include "app/manual/ManualDocument.h"
#include "app/manual/ManualPages.h"
#include "app/manual/ManualSource.h"
#include "app/manual/ManualText.h"
#include "app/manual/PdfOutline.h"
#include "model/shared/modText.h"
#include "platform/CodePage.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/headless/MemorySettings.h"

namespace {

constexpr double kA4Height = 841.89;  // points
constexpr int kFewestPages = 15;

struct Request {
  std::string source;
  std::string pictures;
  std::string file;
  std::string language = "en";
};

std::string ReadFile(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void WriteFile(const std::string& file, const std::string& content) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out << content;
  if (!out.flush()) throw tavrin::ManualFault(file + " cannot be written");
}

tavrin::PageWords WordsOf(const tavrin::ManualText& text) {
  const auto word = [&text](const char* name) { return QString::fromStdString(text.Word(name)); };
  return {QString::fromStdString(tavrin::ToUtf8(tavrin::ResText(1))), word("title"), word("subtitle"),
          word("version") + QStringLiteral(" " TAVRIN_VERSION), word("contents")};
}

/// The file appears when it is whole: a build that was broken off leaves none that looks new.
void Make(const Request& request) {
  tavrin::HeadlessDesktop desktop;
  tavrin::MemorySettings settings;
  const auto wording = request.language == "de" ? tavrin::Wording::German : tavrin::Wording::English;
  tavrin::Machine machine(desktop, &settings, wording, tavrin::ApplicationDirectory());
  machine.Texts().Init();
  const tavrin::ManualSource source = tavrin::ReadManual(request.source);
  tavrin::ManualText text(source, TAVRIN_VERSION, desktop);
  const std::string markdown = text.Expand();
  tavrin::ManualPages pages(markdown, tavrin::ReadPictures(text.Pictures(), request.pictures), WordsOf(text));
  const std::string draft = request.file + ".new";
  const auto marks = pages.Write(draft);
  const std::string pdf = tavrin::WithBookmarks(ReadFile(draft), marks, kA4Height);
  const int count = tavrin::CountPages(pdf);
  if (count < kFewestPages) throw tavrin::ManualFault("the manual has only " + std::to_string(count) + " pages");
  WriteFile(draft, pdf);
  std::filesystem::rename(draft, request.file);
  std::printf("%s: %d pages\n", request.file.c_str(), count);
}

}  // namespace

int main(int argc, char** argv) {
  tavrin::PrepareProcess();
  CLI::App app("Makes the manual of one language.", "tavrin-manual");
  Request request;
  app.add_option("SOURCE", request.source, "folder of the sources")->required();
  app.add_option("PICTURES", request.pictures, "folder of the pictures")->required();
  app.add_option("FILE", request.file, "the PDF file to write")->required();
  app.add_option("--language", request.language, "language of the texts")->check(CLI::IsMember({"de", "en"}));
  CLI11_PARSE(app, argc, argv);
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("QT_LOGGING_RULES", "default.warning=false", 0);  // a machine without a display lacks more of a desktop
  try {
    const QGuiApplication application(argc, argv);
    Make(request);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tavrin-manual: %s\n", error.what());
    return 1;
  }
}
