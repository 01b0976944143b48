#include "app/manual/PdfOutline.h"

#include <charconv>
#include <cstddef>
#include <optional>
#include <utility>

#include <fmt/format.h>

#include "app/manual/ManualSource.h"

namespace tavrin {

namespace {

/// The number behind a key, e.g. 12 of "/Root 12 0 R".
int NumberBehind(std::string_view text, std::string_view key) {
  std::size_t at = text.find(key);
  if (at == std::string_view::npos) throw ManualFault("the PDF file has no " + std::string(key));
  at = text.find_first_not_of(" \r\n", at + key.size());
  int number = -1;
  if (at != std::string_view::npos) std::from_chars(text.data() + at, text.data() + text.size(), number);
  if (number < 0) throw ManualFault("the PDF file has no number behind " + std::string(key));
  return number;
}

/// What stands between "<<" and the ">>" that ends an object.
std::string_view ObjectBody(std::string_view pdf, int number) {
  const std::string head = fmt::format("\n{} 0 obj", number);
  const std::size_t at = pdf.find(head);
  const std::size_t begin = pdf.find("<<", at == std::string_view::npos ? pdf.size() : at);
  const std::size_t end = pdf.find("endobj", begin == std::string_view::npos ? pdf.size() : begin);
  if (end == std::string_view::npos) throw ManualFault(fmt::format("the PDF file has no object {}", number));
  const std::string_view object = pdf.substr(begin + 2, end - begin - 2);
  return object.substr(0, object.rfind(">>"));
}

std::vector<int> PagesOf(std::string_view pdf, std::string_view catalog) {
  std::string_view kids = ObjectBody(pdf, NumberBehind(catalog, "/Pages"));
  const std::size_t open = kids.find('[');
  const std::size_t close = kids.find(']');
  if (open == std::string_view::npos || close == std::string_view::npos) throw ManualFault("the PDF file has no pages");
  kids = kids.substr(open + 1, close - open - 1);
  std::vector<int> pages;
  for (std::size_t end = kids.find(" 0 R"); end != std::string_view::npos; end = kids.find(" 0 R")) {
    const std::size_t begin = kids.find_last_not_of("0123456789", end - 1) + 1;
    int number = 0;
    std::from_chars(kids.data() + begin, kids.data() + end, number);
    pages.push_back(number);
    kids.remove_prefix(end + 4);
  }
  return pages;
}

/// UTF-16 in hexadecimal digits, which needs no escaping.
std::string TitleText(const std::u16string& title) {
  std::string text = "<FEFF";
  for (const char16_t unit : title) text += fmt::format("{:04X}", static_cast<unsigned>(unit));
  return text + ">";
}

/// Neighbours of an entry in the tree, as positions in the list.
struct Links {
  std::optional<std::size_t> parent, before, after, first, last;
  int children = 0;
};

std::vector<Links> LinkUp(const std::vector<Bookmark>& marks) {
  std::vector<Links> links(marks.size());
  std::optional<std::size_t> lastTop;
  for (std::size_t i = 0; i < marks.size(); ++i) {
    std::optional<std::size_t> before = lastTop;
    if (marks[i].level > 1 && lastTop) {
      links[i].parent = lastTop;
      before = std::exchange(links[*lastTop].last, i);
      if (!links[*lastTop].first) links[*lastTop].first = i;
      ++links[*lastTop].children;
    } else {
      lastTop = i;
    }
    links[i].before = before;
    if (before) links[*before].after = i;
  }
  return links;
}

/// Objects that are added to the file, with the places where they stand.
class Update {
 public:
  Update(std::string& pdf, int firstFree) : pdf_(pdf), next_(firstFree) {}

  [[nodiscard]] int Next() const { return next_; }
  void AddNew(const std::string& body) { Add(next_++, body); }
  void Add(int number, const std::string& body) {
    table_ += fmt::format("{} 1\n{:010} 00000 n \n", number, pdf_.size());
    pdf_ += fmt::format("{} 0 obj\n<<{}>>\nendobj\n", number, body);
  }
  void Finish(int root, int info, int before) {
    const std::size_t start = pdf_.size();
    pdf_ += "xref\n" + table_;
    pdf_ += fmt::format("trailer\n<<\n/Size {}\n/Info {} 0 R\n/Root {} 0 R\n/Prev {}\n>>\nstartxref\n{}\n%%EOF\n",
                        next_, info, root, before, start);
  }

 private:
  std::string& pdf_;
  int next_;
  std::string table_;
};

std::string MarkBody(const Bookmark& mark, const Links& links, int first, int pageObject, double height) {
  const auto reference = [first](std::size_t position) {
    return fmt::format("{} 0 R", first + 1 + static_cast<int>(position));
  };
  std::string body = fmt::format("\n/Title {}\n/Dest [{} 0 R /XYZ 0 {:.1f} 0]\n", TitleText(mark.title), pageObject,
                                 height * (1 - mark.fromTop));
  body += "/Parent " + (links.parent ? reference(*links.parent) : fmt::format("{} 0 R", first)) + "\n";
  if (links.before) body += "/Prev " + reference(*links.before) + "\n";
  if (links.after) body += "/Next " + reference(*links.after) + "\n";
  if (links.first) {
    body += fmt::format("/First {}\n/Last {}\n/Count -{}\n", reference(*links.first), reference(*links.last),
                        links.children);
  }
  return body;
}

}  // namespace

std::string WithBookmarks(std::string pdf, const std::vector<Bookmark>& marks, double height) {
  if (marks.empty()) return pdf;
  const std::size_t trailerAt = pdf.rfind("trailer");
  if (trailerAt == std::string::npos) throw ManualFault("the PDF file has no trailer");
  const std::string trailer = pdf.substr(trailerAt);
  const int root = NumberBehind(trailer, "/Root");
  const int first = NumberBehind(trailer, "/Size");
  const std::string catalog(ObjectBody(pdf, root));
  const std::vector<int> pages = PagesOf(pdf, catalog);
  const std::vector<Links> links = LinkUp(marks);
  std::size_t lastTop = 0;
  int tops = 0;
  for (std::size_t i = 0; i < marks.size(); ++i) {
    if (!links[i].parent) lastTop = i, ++tops;
  }
  Update update(pdf, first);
  update.AddNew(fmt::format("\n/Type /Outlines\n/First {} 0 R\n/Last {} 0 R\n/Count {}\n", first + 1,
                            first + 1 + static_cast<int>(lastTop), tops));
  for (std::size_t i = 0; i < marks.size(); ++i) {
    if (marks[i].page < 0 || marks[i].page >= static_cast<int>(pages.size())) {
      throw ManualFault(fmt::format("the PDF file has no page {}", marks[i].page + 1));
    }
    update.AddNew(MarkBody(marks[i], links[i], first, pages[static_cast<std::size_t>(marks[i].page)], height));
  }
  update.Add(root, catalog + fmt::format("/Outlines {} 0 R\n/PageMode /UseOutlines\n", first));
  update.Finish(root, NumberBehind(trailer, "/Info"), NumberBehind(trailer, "startxref"));
  return pdf;
}

int CountPages(std::string_view pdf) {
  static constexpr std::string_view kPage = "/Type /Page\n";
  int pages = 0;
  for (std::size_t at = pdf.find(kPage); at != std::string_view::npos; at = pdf.find(kPage, at + 1)) ++pages;
  return pages;
}

}  // namespace tavrin
