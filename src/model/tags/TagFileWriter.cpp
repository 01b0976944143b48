#include "model/tags/TagFileWriter.h"

#include "model/tags/cTag.h"

namespace tavrin {

namespace {
constexpr std::size_t kBlock = std::size_t{1} << 20;  // bytes handed to the system at once
}

TagFileWriter::TagFileWriter(OutputFile& file, bool upperCaseNames) : file_(file), upperCaseNames_(upperCaseNames) {
  block_.reserve(kBlock);
}

void TagFileWriter::Add(cTag& tag) {
  tag.AppendComplete(block_, upperCaseNames_);
  block_ += '\r';
  block_ += '\n';
  if (tag.bDataDirty()) dirty_.push_back(&tag);
  if (block_.size() > kBlock - kBlock / 16) Finish();
}

void TagFileWriter::Finish() {
  file_.Write(block_);
  block_.clear();
  for (cTag* tag : dirty_) tag->bDataDirty(false);
  dirty_.clear();
}

}  // namespace tavrin
