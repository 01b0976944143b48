#include "platform/headless/HeadlessDesktop.h"

#include <utility>

#include "platform/controls/Form.h"
#include "platform/controls/MenuEntry.h"

namespace tavrin {

void HeadlessDesktop::ShowBox(std::string_view text) {
  if (boxes_.size() < kMost) boxes_.emplace_back(text);
  Tell("box", text);
}

bool HeadlessDesktop::AskYesNo(std::string_view text) {
  questions_.emplace_back(text);
  bool yes = false;
  if (answers_.empty()) {
    unexpected_.emplace_back(text);
  } else {
    yes = answers_.front();
    answers_.pop_front();
  }
  Tell(yes ? "yes" : "no", text);
  return yes;
}

void HeadlessDesktop::ShowModal(Form& form) {
  form.Show();
  if (OnModal) OnModal(form);
  if (!form.Visible()) return;
  unexpected_.push_back(form.Caption());
  form.Hide();
}

void HeadlessDesktop::PopupMenu(MenuEntry& menu) {
  menu.UserOpen();
  Tell("popup", menu.Name());
  if (OnPopup) OnPopup(menu);
}

std::optional<std::string> HeadlessDesktop::AskOpenFile(const OpenFileRequest& request) {
  openRequests_.push_back(request);
  return NextPath("open", request.fileName);
}

std::string HeadlessDesktop::AskFolder(std::string_view title) {
  folderTitles_.emplace_back(title);
  return NextPath("folder", std::string(title)).value_or(std::string());
}

void HeadlessDesktop::DoEvents() {
  ++rounds_;
  posted_.Run();
}

void HeadlessDesktop::Post(std::function<void()> action) { posted_.Add(std::move(action)); }

bool HeadlessDesktop::WaitUntil(const std::function<bool()>& done, int milliseconds) {
  return posted_.RunUntil(done, std::chrono::milliseconds(milliseconds));
}

void HeadlessDesktop::EndProcess() {
  ended_ = true;
  posted_.Close();
}

void HeadlessDesktop::Restart() {
  ended_ = false;
  posted_.Open();
}

std::vector<std::string> HeadlessDesktop::TakeBoxes() { return std::exchange(boxes_, {}); }

std::optional<std::string> HeadlessDesktop::NextPath(std::string_view what, const std::string& text) {
  Tell(what, text);
  if (paths_.empty()) {
    unexpected_.push_back(text);
    return std::nullopt;
  }
  auto path = std::move(paths_.front());
  paths_.pop_front();
  return path;
}

void HeadlessDesktop::Tell(std::string_view what, std::string_view text) const {
  if (OnTold) OnTold(what, text);
}

}  // namespace tavrin
