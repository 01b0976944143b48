#include "support/ShellTest.h"

#include <filesystem>

namespace tavrin {

std::string ShellTest::CopySample(const std::string& name) {
  std::filesystem::copy(std::string(TAVRIN_SOURCE_DIR "/samples/") + name, directory.Path(),
                        std::filesystem::copy_options::overwrite_existing);
  return directory.Path() + "ZOPCSRV.ini";
}

void ShellTest::OpenSample(const std::string& name) {
  const std::string file = CopySample(name);
  desktop.AnswerNext(false);
  desktop.AnswerNext(false);
  window->commands.OPCProjectLoadFromDisk(file);
}

}  // namespace tavrin
