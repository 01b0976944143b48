#include "model/tags/TagLine.h"

#include <cstring>
#include <limits>
#include <utility>

#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

std::size_t WidthFor(std::size_t total) {
  if (total > std::numeric_limits<std::uint32_t>::max()) throw RuntimeError(ErrorNumber::OutOfMemory);
  if (total <= std::numeric_limits<std::uint8_t>::max()) return 1;
  return total <= std::numeric_limits<std::uint16_t>::max() ? 2 : 4;
}

std::size_t HeaderSize(std::size_t width) { return 1 + TagLine::kCount * width; }

void StoreNumber(unsigned char* to, std::size_t width, std::size_t number) {
  for (std::size_t i = 0; i < width; ++i) to[i] = static_cast<unsigned char>(number >> (8 * i));
}

std::size_t LengthInLine(std::size_t text, std::string_view value) {
  return value.empty() ? 0 : TagLine::kLeads[text].size() + value.size();
}

unsigned char* Copy(unsigned char* to, std::string_view text) {
  if (!text.empty()) std::memcpy(to, text.data(), text.size());
  return to + text.size();
}

}  // namespace

std::size_t TagLine::End(std::size_t text) const {
  const std::size_t width = block_[0];
  const unsigned char* at = &block_[1 + text * width];
  if (width == 1) return at[0];
  std::size_t number = 0;
  for (std::size_t i = 0; i < width; ++i) number |= static_cast<std::size_t>(at[i]) << (8 * i);
  return number;
}

std::string_view TagLine::Between(std::size_t text, std::size_t start, std::size_t end) const {
  if (start == end) return {};
  const auto* line = reinterpret_cast<const char*>(&block_[HeaderSize(block_[0])]);
  const std::size_t lead = kLeads[text].size();
  return {line + start + lead, end - start - lead};
}

std::string_view TagLine::Get(Text text) const {
  return block_ ? Between(text, text == 0 ? 0 : End(text - 1), End(text)) : std::string_view{};
}

TagLine::Views TagLine::All() const {
  Views views;
  if (!block_) return views;
  std::size_t start = 0;
  for (std::size_t i = 0; i < kCount; ++i) {
    const std::size_t end = End(i);
    views[i] = Between(i, start, end);
    start = end;
  }
  return views;
}

std::string_view TagLine::Complete() const {
  if (!block_) return {};
  const std::size_t name = End(Name);
  const std::size_t data = End(Data);
  const std::size_t access = End(Access);
  std::size_t end = End(kLastInLine);
  if (access == data) end = data;
  if (data == name) end = name;
  if (name == 0) end = 0;
  return {reinterpret_cast<const char*>(&block_[HeaderSize(block_[0])]), end};
}

void TagLine::Set(Text text, std::string_view value) {
  Views views = All();
  views[text] = value;
  Assign(views);
}

void TagLine::Assign(const Views& texts) {
  std::size_t total = 0;
  for (std::size_t i = 0; i < kCount; ++i) total += LengthInLine(i, texts[i]);
  const std::size_t width = WidthFor(total);
  std::unique_ptr<unsigned char[]> block(new unsigned char[HeaderSize(width) + total]);
  block[0] = static_cast<unsigned char>(width);
  unsigned char* to = &block[HeaderSize(width)];
  std::size_t end = 0;
  for (std::size_t i = 0; i < kCount; ++i) {
    if (!texts[i].empty()) to = Copy(Copy(to, kLeads[i]), texts[i]);
    end += LengthInLine(i, texts[i]);
    StoreNumber(&block[1 + i * width], width, end);
  }
  block_ = std::move(block);
}

}  // namespace tavrin
