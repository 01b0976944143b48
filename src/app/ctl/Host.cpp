#include "app/ctl/Host.h"

namespace tavrin {

Host::Host(Wording wording, const std::string& applicationDirectory)
    : machine_(desktop_, nullptr, wording, applicationDirectory) {
  machine_.Texts().Init();
}

}  // namespace tavrin
