// Prints what the platform's own functions find in the version resources of files, in the form of
// version_table_main.cpp. The names of the files come from standard input, one a line, with "/" between the pieces.
// Built for Windows and run under Wine by compare.sh.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace {

const char* const kKeys[][2] = {{"Comments", "Comments"},
                                {"Company Name", "CompanyName"},
                                {"File Description", "FileDescription"},
                                {"File Version", "FileVersion"},
                                {"Internal Name", "InternalName"},
                                {"Legal Copyright", "LegalCopyright"},
                                {"Legal Trademarks", "LegalTrademarks"},
                                {"Original Filename", "OriginalFilename"},
                                {"Product Name", "ProductName"},
                                {"Product Version", "ProductVersion"},
                                {"Private Build", "PrivateBuild"},
                                {"Special Build", "SpecialBuild"},
                                {"LegalTrademarks1", "LegalTrademarks1"},
                                {"LegalTrademarks2", "LegalTrademarks2"}};

struct Query {
  Query(const std::vector<char>& block, const std::string& path)
      : found(VerQueryValueA(block.data(), path.c_str(), &value, &length) != FALSE && length != 0) {}

  std::string Text() const { return found ? std::string(static_cast<const char*>(value)) : std::string(); }

  LPVOID value = nullptr;
  UINT length = 0;
  bool found;
};

std::string TablePath(unsigned language, unsigned codePage) {
  char path[64];
  std::snprintf(path, sizeof path, "\\StringFileInfo\\%04X%04X\\", language, codePage);
  return path;
}

void PrintTexts(const std::vector<char>& block, unsigned language, unsigned codePage) {
  std::string path = TablePath(language, codePage);
  if (Query(block, path + "CompanyName").Text().empty() &&
      !Query(block, TablePath(1033, codePage) + "CompanyName").Text().empty()) {
    path = TablePath(1033, codePage);
  }
  for (const auto& key : kKeys) std::cout << key[0] << '=' << Query(block, path + key[1]).Text() << '\n';
}

void PrintNumber(const void* from) {
  DWORD number = 0;
  std::copy_n(static_cast<const char*>(from), sizeof number, reinterpret_cast<char*>(&number));
  std::printf(" %08lX", number);
}

void PrintBlock(const std::vector<char>& block) {
  const Query fixed(block, "\\");
  std::cout << "fixed" << std::flush;
  for (unsigned at = 0; fixed.found && fixed.length >= 52 && at < 52; at += 4) {
    PrintNumber(static_cast<const char*>(fixed.value) + at);
  }
  std::printf("\ntranslation");
  const Query translation(block, "\\VarFileInfo\\Translation");
  if (translation.found) PrintNumber(translation.value);
  std::printf("\n");
  std::fflush(stdout);
  const auto* words = static_cast<const WORD*>(translation.value);
  if (translation.found) return PrintTexts(block, words[0], words[1]);
  for (const auto& key : kKeys) std::cout << key[0] << "=\n";
}

void PrintFile(const std::string& path) {
  std::string own = "Z:" + path;
  std::replace(own.begin(), own.end(), '/', '\\');
  DWORD handle = 0;
  const DWORD size = GetFileVersionInfoSizeA(own.c_str(), &handle);
  std::cout << "file " << path.substr(path.rfind('/') + 1) << "\navailable " << (size != 0) << '\n' << std::flush;
  // Behind the block lies what the functions need for themselves.
  std::vector<char> block(size + 4096);
  if (size == 0) return;
  GetFileVersionInfoA(own.c_str(), 0, size, block.data());
  PrintBlock(block);
}

}  // namespace

int main() {
  _setmode(_fileno(stdout), _O_BINARY);
  for (std::string path; std::getline(std::cin, path);) {
    if (!path.empty() && path.back() == '\r') path.pop_back();
    PrintFile(path);
    std::cout << std::flush;
  }
  return 0;
}
