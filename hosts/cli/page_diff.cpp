#include "hosts/cli/page_diff.h"

#include "hosts/cli/alignment.h"
#include "hosts/cli/counted.h"
#include "hosts/cli/element_matching.h"
#include "hosts/cli/element_picture.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"

namespace quenzel7::cli {
namespace {

std::string Size(const Panel& panel) {
  return std::to_string(panel.width) + " by " + std::to_string(panel.height);
}

/// Where an element is, or how much is in it.
std::string Told(const ElementSnapshot& element) {
  if (element.IsGroup()) return "with " + Counted(element.inside, "element");
  std::map<std::string_view, std::string> values;
  for (std::size_t at = 0; at < element.values.size(); ++at)
    values[element.properties[at]] = element.values[at];
  return "at (" + values["Xs"] + ", " + values["Ys"] + ") with size (" + values["Dx"] + ", " + values["Dy"] +
         ")";
}

class Comparison {
 public:
  Comparison(const PageSnapshot& a, const PageSnapshot& b)
      : a_(a), b_(b), matching_(MatchElements(a, b)), inOrder_(a.elements.size(), true) {
    diff_.differsA.assign(a.elements.size(), false);
    diff_.differsB.assign(b.elements.size(), false);
  }

  PageDiff Run() {
    CompareInfo();
    FindMoves();
    for (std::size_t index = 0; index < a_.elements.size(); ++index) CompareElement(index);
    for (std::size_t index = 0; index < b_.elements.size(); ++index) {
      if (matching_.ofB[index] != kNoElement) continue;
      diff_.differsB[index] = true;
      Tell(b_.NameOf(index) + " came, " + Told(b_.elements[index]));
    }
    return std::move(diff_);
  }

 private:
  void CompareInfo() {
    const auto compare = [this](const std::string& what, const std::string& before,
                                const std::string& after) {
      if (before != after) Tell(what + " " + before + " -> " + after);
    };
    compare("name", Quoted(a_.info.name), Quoted(b_.info.name));
    compare("panel type", std::to_string(a_.info.panel.type), std::to_string(b_.info.panel.type));
    compare("panel size", Size(a_.info.panel), Size(b_.info.panel));
  }

  /// The group of page b in which an element of page a would be, had it not moved; kNoElement for the page.
  bool StaysInGroup(std::size_t index) const {
    const std::size_t before = a_.elements[index].group;
    const std::size_t after = b_.elements[matching_.ofA[index]].group;
    if (before == kNoElement) return after == kNoElement;
    return after != kNoElement && matching_.ofA[before] == after;
  }

  /// Of the elements that stay in their group, as many as can be keep their order; the others have moved.
  void FindMoves() {
    std::map<std::size_t, std::vector<std::size_t>> lists;
    for (std::size_t index = 0; index < a_.elements.size(); ++index) {
      if (matching_.ofA[index] != kNoElement && StaysInGroup(index))
        lists[a_.elements[index].group].push_back(index);
    }
    for (const auto& [group, elements] : lists) {
      std::vector<std::size_t> places;
      for (const std::size_t index : elements) {
        places.push_back(matching_.ofA[index]);
        inOrder_[index] = false;
      }
      for (const std::size_t at : LongestRising(places)) inOrder_[elements[at]] = true;
    }
  }

  void CompareElement(std::size_t index) {
    const ElementSnapshot& before = a_.elements[index];
    const std::string name = a_.NameOf(index);
    const std::size_t partner = matching_.ofA[index];
    if (partner == kNoElement) {
      diff_.differsA[index] = true;
      return Tell(name + " went, " + Told(before));
    }
    const ElementSnapshot& after = b_.elements[partner];
    const std::size_t linesBefore = diff_.lines.size();
    if (!StaysInGroup(index)) {
      Tell(name + " moved " + (after.group == kNoElement ? "out of its group" : "into another group") +
           ", it is now " + b_.NameOf(partner));
    } else if (!inOrder_[index]) {
      Tell(name + " moved in the drawing order, it is now " + b_.NameOf(partner));
    }
    for (std::size_t at = 0; at < before.values.size(); ++at) {
      if (before.values[at] == after.values[at]) continue;
      if (!SettingsKey(before.properties[at]).empty()) {
        CompareSettings(name, before.properties[at], before.values[at], after.values[at]);
        continue;
      }
      const bool isPicture = before.properties[at] == kPictureKey;
      Tell(name + ": " + std::string(before.properties[at]) + " " +
           (isPicture ? before.picture : before.values[at]) + " -> " +
           (isPicture ? after.picture : after.values[at]));
    }
    if (diff_.lines.size() > linesBefore) diff_.differsA[index] = diff_.differsB[partner] = true;
  }

  /// Tells what differs in settings by their paths; what only one side has differs from none.
  void CompareSettings(const std::string& name, std::string_view key, const std::string& before,
                       const std::string& after) {
    std::map<std::string, std::string> rest;
    for (auto& [path, value] : SettingsByPath(key, Json::parse(after))) rest[path] = value;
    const auto tell = [this, &name](const std::string& path, const std::string& from, const std::string& to) {
      if (from != to) Tell(name + ": " + path + " " + from + " -> " + to);
    };
    for (const auto& [path, value] : SettingsByPath(key, Json::parse(before))) {
      const auto other = rest.find(path);
      tell(path, value, other == rest.end() ? "none" : other->second);
      if (other != rest.end()) rest.erase(other);
    }
    for (const auto& [path, value] : SettingsByPath(key, Json::parse(after))) {
      if (rest.count(path) > 0) tell(path, "none", value);
    }
  }

  void Tell(const std::string& what) {
    diff_.lines.push_back("page " + std::to_string(a_.info.number) + ": " + what);
  }

  const PageSnapshot &a_, &b_;
  ElementMatching matching_;
  /// By the elements of page a; true for those that are in another group now, too.
  std::vector<bool> inOrder_;
  PageDiff diff_;
};

std::string Told(const PageSnapshot& page, const std::string& became) {
  return "page " + std::to_string(page.info.number) + " " + became + ": " + Quoted(page.info.name) + ", " +
         Counted(page.elements.size(), "element");
}

}  // namespace

PageDiff ComparePages(const std::optional<PageSnapshot>& a, const std::optional<PageSnapshot>& b) {
  if (a && b) return Comparison(*a, *b).Run();
  PageDiff diff;
  if (a) {
    diff.lines.push_back(Told(*a, "went"));
    diff.differsA.assign(a->elements.size(), true);
  }
  if (b) {
    diff.lines.push_back(Told(*b, "came"));
    diff.differsB.assign(b->elements.size(), true);
  }
  return diff;
}

}  // namespace quenzel7::cli
