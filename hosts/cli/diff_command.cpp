#include <algorithm>
#include <set>

#include "hosts/cli/commands.h"
#include "hosts/cli/counted.h"
#include "hosts/cli/diff_side.h"
#include "hosts/cli/distinct_output.h"
#include "hosts/cli/page_diff.h"
#include "hosts/cli/png_writer.h"
#include "hosts/cli/renderer.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {
namespace {

/// Compares two sources page by page.
class Diff {
 public:
  Diff(const std::string& pathA, const std::string& pathB, const Console& console)
      : a_(pathA), b_(pathB), console_(console) {}

  /// Without `page` it is all pages, or those of the page files when there are some.
  void Compare(std::optional<Long> page) {
    const auto pagesA = TakeAll(a_, b_, page);
    const auto pagesB = TakeAll(b_, a_, page);
    std::set<Long> numbers;
    for (const auto& [number, snapshot] : pagesA) numbers.insert(number);
    for (const auto& [number, snapshot] : pagesB) numbers.insert(number);
    if (page && numbers.empty()) {
      throw UserError("neither " + a_.Place() + " nor " + b_.Place() + " has a page " +
                      std::to_string(*page));
    }
    const auto find = [](const SnapshotsByNumber& pages, Long number) {
      const auto found = pages.find(number);
      return found == pages.end() ? std::optional<PageSnapshot>() : found->second;
    };
    for (const Long number : numbers) {
      const auto a = find(pagesA, number), b = find(pagesB, number);
      elements_ += std::max(a ? a->elements.size() : 0, b ? b->elements.size() : 0);
      PageDiff diff = ComparePages(a, b);
      if (diff.lines.empty()) continue;
      lines_.insert(lines_.end(), diff.lines.begin(), diff.lines.end());
      differing_.push_back({number, a ? std::optional(a->info) : std::nullopt,
                            b ? std::optional(b->info) : std::nullopt, std::move(diff)});
    }
    pages_ = numbers.size();
  }

  /// Paints the page that differs; does nothing when none does.
  void Paint(const std::string& outputPath) const {
    if (differing_.empty()) return;
    if (differing_.size() > 1) {
      std::string list;
      for (const DifferingPage& page : differing_)
        list += (list.empty() ? "" : ", ") + std::to_string(page.number);
      throw UserError("several pages differ (" + list + "): choose one for the picture with --page");
    }
    const DifferingPage& page = differing_.front();
    WritePng(outputPath, DiffPicture(Painted(a_, b_, page.a, page.b, page.diff.differsA),
                                     Painted(b_, a_, page.b, page.a, page.diff.differsB)));
  }

  int Tell() const {
    for (const std::string& line : lines_) console_.out << OneLine(line) << '\n';
    if (lines_.empty()) {
      console_.out << "nothing differs in " << Counted(pages_, "page") << " with "
                   << Counted(elements_, "element") << '\n';
      return 0;
    }
    console_.out << Counted(lines_.size(), "difference") << " on " << Counted(differing_.size(), "page")
                 << '\n';
    return kFound;
  }

 private:
  using SnapshotsByNumber = std::map<Long, PageSnapshot>;
  struct DifferingPage {
    Long number;
    std::optional<PageInfo> a, b;
    PageDiff diff;
  };

  bool IsCompared(Long number, std::optional<Long> page) const {
    if (page) return number == *page;
    if (!a_.File() && !b_.File()) return true;
    return (a_.File() && a_.File()->info.number == number) || (b_.File() && b_.File()->info.number == number);
  }

  SnapshotsByNumber TakeAll(const DiffSource& source, const DiffSource& other,
                            std::optional<Long> page) const {
    SnapshotsByNumber snapshots;
    DiffSide side(source, other);
    for (const PageInfo& info : side.Pages()) {
      if (IsCompared(info.number, page)) snapshots.emplace(info.number, side.Snapshot(info, console_));
    }
    return snapshots;
  }

  /// A page that is not there is a white one as large as the other.
  PaintedPage Painted(const DiffSource& source, const DiffSource& other, const std::optional<PageInfo>& info,
                      const std::optional<PageInfo>& otherInfo, const std::vector<bool>& differs) const {
    if (info) return DiffSide(source, other).Paint(*info, differs, console_);
    Picture white = RenderPage({*otherInfo, {}}, console_);
    std::vector<bool> covered(white.pixels.size(), false);
    return {std::move(white), std::move(covered)};
  }

  DiffSource a_, b_;
  const Console& console_;
  std::vector<std::string> lines_;
  std::vector<DifferingPage> differing_;
  std::size_t pages_ = 0;
  std::size_t elements_ = 0;
};

}  // namespace

int DiffCommand(const std::string& pathA, const std::string& pathB, std::optional<Long> page,
                const std::string& outputPath, const Console& console) {
  RequireDistinctOutput(PicturePlace(outputPath), outputPath, {pathA, pathB});
  Diff diff(pathA, pathB, console);
  diff.Compare(page);
  if (!outputPath.empty()) diff.Paint(outputPath);
  return diff.Tell();
}

}  // namespace quenzel7::cli
