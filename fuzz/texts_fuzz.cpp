#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "model/shared/TextCatalogue.h"

/// Whatever a catalogue file holds: the texts come out ascending by number and each number once, and no text is
/// longer than the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<char> bytes(data, data + size);
  const std::vector<tavrin::CatalogueText> texts = tavrin::ParseCatalogue({bytes.data(), bytes.size()});
  int last = -1;
  for (const tavrin::CatalogueText& text : texts) {
    if (text.number <= last || text.text.size() >= size) std::abort();
    last = text.number;
  }
  return 0;
}
