#include "model/shared/modFiles.h"

#include "model/shared/modMain.h"

namespace tavrin {

bool FileExists(std::string_view path) {
  bool exists = false;
  modMain::IgnoreErrors([&] {
    const auto status = modMain::Platform().files.Status(path);
    exists = status && !status->directory;
  });
  return exists;
}

}  // namespace tavrin
