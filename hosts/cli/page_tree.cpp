#include "hosts/cli/page_tree.h"

#include <algorithm>
#include <limits>
#include <map>
#include <tuple>

#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "shapes/element_columns.h"

namespace quenzel7::cli {
namespace {

constexpr std::size_t kNobody = static_cast<std::size_t>(-1);

/// What an element's place is compared by: its order, then what it is, then the key of its row.
enum class Kind { EmptyGroup, Single };
using Place = std::tuple<Long, Kind, Long>;

struct Node {
  ElementRef element;
  Place place;
  std::size_t group = kNobody;
  std::vector<std::size_t> members = {};
};

class Tree {
 public:
  explicit Tree(const std::vector<PageRow>& rows) {
    constexpr Long kOnTop = std::numeric_limits<Long>::max();
    for (const PageRow& row : rows) {
      const Kind kind = IsGroup(*row.element) ? Kind::EmptyGroup : Kind::Single;
      nodes_.push_back({row.element, {row.place.value_or(kOnTop), kind, IdOf(*row.element)}});
    }
    FindGroups();
    BreakCycles();
    for (std::size_t index = 0; index < nodes_.size(); ++index) {
      const std::size_t group = nodes_[index].group;
      (group == kNobody ? top_ : nodes_[group].members).push_back(index);
    }
  }

  std::vector<ElementRef> Build() {
    // Groups that stand too deep are added to those on top on the way.
    for (std::size_t next = 0; next < top_.size(); ++next) Fill(top_[next], 1);
    return Elements(top_);
  }

 private:
  void FindGroups() {
    std::map<Long, std::size_t> groups;
    for (std::size_t index = 0; index < nodes_.size(); ++index) {
      ItfHmiElement& element = *nodes_[index].element;
      // A row that says of itself that it is none is not the group of all that are in none.
      if (IsGroup(element) && IdOf(element) != kNone) groups.emplace(IdOf(element), index);
    }
    for (Node& node : nodes_) {
      const auto group = groups.find(automation::To<Long>(Read(*node.element, "GroupID")));
      if (group != groups.end()) node.group = group->second;
    }
  }

  /// Takes every group that is in itself, directly or through others, out of its group.
  void BreakCycles() {
    std::vector<std::size_t> walk(nodes_.size(), kNobody);
    for (std::size_t start = 0; start < nodes_.size(); ++start) {
      std::size_t index = start;
      for (; index != kNobody && walk[index] == kNobody; index = nodes_[index].group) walk[index] = start;
      if (index == kNobody || walk[index] != start) continue;
      while (nodes_[index].group != kNobody) index = std::exchange(nodes_[index].group, kNobody);
    }
  }

  /// Puts the members into a group, `depth` groups deep, and finds its place.
  void Fill(std::size_t index, int depth) {
    Node& group = nodes_[index];
    std::vector<std::size_t> members;
    for (const std::size_t member : group.members) {
      if (depth == kDeepestLoadedGroup && IsGroup(*nodes_[member].element)) {
        top_.push_back(member);
      } else {
        Fill(member, depth + 1);
        members.push_back(member);
      }
    }
    if (members.empty()) return;
    for (const ElementRef& member : Elements(members)) AddMember(*group.element, member);
    group.place = nodes_[members.front()].place;
  }

  /// The elements in drawing order, into which the indexes are brought.
  std::vector<ElementRef> Elements(std::vector<std::size_t>& indexes) const {
    std::sort(indexes.begin(), indexes.end(),
              [this](std::size_t a, std::size_t b) { return nodes_[a].place < nodes_[b].place; });
    std::vector<ElementRef> elements;
    for (const std::size_t index : indexes) elements.push_back(nodes_[index].element);
    return elements;
  }

  std::vector<Node> nodes_;
  /// The elements that are in no group.
  std::vector<std::size_t> top_;
};

}  // namespace

std::vector<ElementRef> TreeOf(const std::vector<PageRow>& rows) { return Tree(rows).Build(); }

}  // namespace quenzel7::cli
