#include "sim/TestPartner.h"

#include <numeric>

#include "sim/TagType.h"

namespace tavrin {

namespace {

SimItem* FindRole(const TestPartner::Items& items, ItemRole role) {
  for (const auto& item : items) {
    if (item->Is(role)) return item.get();
  }
  return nullptr;
}

bool Differs(SimItem& item, Moment now) {
  const ItemDefinition& definition = item.Definition();
  if (definition.test.empty()) return false;
  return TestValues(definition.test, definition.type) != item.Now(now).values;
}

void HoldAll(SimItem* item, double number, Moment now) {
  if (item == nullptr) return;
  item->Hold(Values(item->Length(), Nearest(item->Definition().type.kind, number)), now);
}

}  // namespace

void TestPartner::Watch(const Items& items, Moment now) {
  const TestPartner before = *this;
  *this = {};
  command_ = FindRole(items, ItemRole::Command);
  if (command_ == nullptr) return;
  result_ = FindRole(items, ItemRole::Result);
  resultArray_ = FindRole(items, ItemRole::ResultArray);
  for (const auto& item : items) {
    if (item->Is(ItemRole::Plain)) plain_.push_back(item.get());
  }
  if (command_ == before.command_) {
    last_ = before.last_;
    testing_ = before.testing_;
    if (result_ == before.result_ && resultArray_ == before.resultArray_) return;
    TellResult(Values(plain_.size(), 0), now);
  } else {
    HoldAll(command_, 0, now);
    Back(now);
  }
}

void TestPartner::Command(double number, Moment now) {
  if (number == last_) return;
  last_ = number;
  if (number == 0) Back(now);
  if (number == 1) Initialise(now);
  if (number == 2) Check(now);
}

void TestPartner::Initialise(Moment now) {
  testing_ = true;
  for (SimItem* const item : plain_) item->HoldStart(now);
}

void TestPartner::Check(Moment now) {
  Values differences;
  for (SimItem* const item : plain_) differences.push_back(Differs(*item, now) ? 1 : 0);
  TellResult(std::move(differences), now);
}

void TestPartner::Back(Moment now) {
  testing_ = false;
  for (SimItem* const item : plain_) item->Release();
  TellResult(Values(plain_.size(), 0), now);
}

void TestPartner::TellResult(Values differences, Moment now) {
  HoldAll(result_, std::accumulate(differences.begin(), differences.end(), 0.0), now);
  if (resultArray_ == nullptr) return;
  differences.resize(resultArray_->Length());
  resultArray_->Hold(std::move(differences), now);
}

}  // namespace tavrin
