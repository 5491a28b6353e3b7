#include "hosts/cli/element_matching.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <tuple>
#include <unordered_map>

#include "hosts/cli/alignment.h"
#include "hosts/cli/page_properties.h"

namespace quenzel7::cli {
namespace {

using Indexes = std::vector<std::size_t>;

/// Gives every text a number of its own.
class Numbering {
 public:
  int Of(const std::string& text) {
    return numbers_.try_emplace(text, static_cast<int>(numbers_.size())).first->second;
  }

 private:
  std::unordered_map<std::string, int> numbers_;
};

/// What two elements have in common, as numbers: elements of either page with the same number are the same in
/// this.
struct Traits {
  /// Class, properties, and all that is in it.
  int content = 0;
  /// The same but for Xs and Ys of an element that is no group.
  int look = 0;
  /// Class, position and size.
  int spot = 0;
  /// Class, ID and GUID; -1 without.
  int identity = -1;
  int elementClass = 0;
  std::vector<int> values;
  /// Of a group: the other numbers of all that is in it, in order.
  std::vector<int> inside;
};

class PageTraits {
 public:
  PageTraits(const PageSnapshot& page, Numbering& numbering) : page_(page), traits_(page.elements.size()) {
    // What is in a group follows it.
    for (std::size_t index = traits_.size(); index-- > 0;) Number(index, numbering);
  }

  const Traits& operator[](std::size_t index) const { return traits_[index]; }

 private:
  void Number(std::size_t index, Numbering& numbering) {
    const ElementSnapshot& element = page_.elements[index];
    Traits& traits = traits_[index];
    const std::string className(element.elementClass->name);
    // The values are JSON, in which no line ends.
    std::string content = className, look = className, spot = className;
    for (std::size_t place = 0; place < element.values.size(); ++place) {
      const std::string_view property = element.properties[place];
      const std::string value = "\n" + element.values[place];
      content += value;
      if (property != "Xs" && property != "Ys") look += value;
      if (IsPositionProperty(property)) spot += value;
      traits.values.push_back(numbering.Of("value" + value));
    }
    for (std::size_t member = index + 1; member <= index + element.inside;
         member += page_.elements[member].inside + 1) {
      content += "\n" + std::to_string(traits_[member].content);
      look += "\n" + std::to_string(traits_[member].look);
    }
    traits.elementClass = numbering.Of("class\n" + className);
    traits.content = numbering.Of("content\n" + content);
    traits.look = numbering.Of("look\n" + look);
    traits.spot = numbering.Of("spot\n" + spot);
    if (element.identity) traits.identity = numbering.Of("identity\n" + className + "\n" + *element.identity);
    if (element.IsGroup()) Gather(index);
  }

  void Gather(std::size_t group) {
    std::vector<int>& inside = traits_[group].inside;
    for (std::size_t index = group; index <= group + page_.elements[group].inside; ++index) {
      const Traits& traits = traits_[index];
      if (traits.identity >= 0) inside.push_back(traits.identity);
      if (page_.elements[index].IsGroup()) continue;
      inside.insert(inside.end(), {traits.content, traits.look, traits.spot});
    }
    std::sort(inside.begin(), inside.end());
  }

  const PageSnapshot& page_;
  std::vector<Traits> traits_;
};

class Matching {
 public:
  Matching(const PageSnapshot& a, const PageSnapshot& b)
      : a_(a), b_(b), traitsA_(a, numbering_), traitsB_(b, numbering_) {
    matching_.ofA.assign(a.elements.size(), kNoElement);
    matching_.ofB.assign(b.elements.size(), kNoElement);
  }

  ElementMatching Find() {
    AlignLists(kNoElement, kNoElement);
    PairEqualGroups();
    MatchGroupsOf(kNoElement, kNoElement);
    MatchGroups(LeftGroups(a_, matching_.ofA), LeftGroups(b_, matching_.ofB));
    if (IdentitiesCount()) {
      PairEqual([](const Traits& traits, std::size_t) { return traits.identity; });
    }
    PairEqual([this](const Traits& traits, std::size_t list) { return InList(traits.content, list); });
    PairEqual([](const Traits& traits, std::size_t) { return traits.content; });
    PairLike([this](const Traits& traits, std::size_t list) { return InList(traits.elementClass, list); });
    PairLike([](const Traits& traits, std::size_t) { return traits.elementClass; });
    return std::move(matching_);
  }

 private:
  /// A number that elements of both pages have alike which may become partners; -1 for none.
  using Key = std::function<int(const Traits& traits, std::size_t list)>;
  using Cost = std::function<long(std::size_t a, std::size_t b)>;

  static constexpr long kNever = -1;
  /// The list of an element that has none on the other page.
  static constexpr std::size_t kNoList = kNoElement - 1;

  /// The members of a group, or of the page, that have no partner.
  static Indexes LeftIn(const PageSnapshot& page, std::size_t group, const Indexes& partners) {
    Indexes left;
    const std::size_t first = group == kNoElement ? 0 : group + 1;
    const std::size_t end = group == kNoElement ? page.elements.size() : first + page.elements[group].inside;
    for (std::size_t index = first; index < end; index += page.elements[index].inside + 1) {
      if (partners[index] == kNoElement) left.push_back(index);
    }
    return left;
  }

  static std::vector<int> NumbersOf(const Indexes& list, const PageTraits& traits, int Traits::*number) {
    std::vector<int> numbers;
    for (const std::size_t index : list) numbers.push_back(traits[index].*number);
    return numbers;
  }

  static Indexes LeftGroups(const PageSnapshot& page, const Indexes& partners) {
    Indexes left;
    for (std::size_t index = 0; index < partners.size(); ++index) {
      if (partners[index] == kNoElement && page.elements[index].IsGroup()) left.push_back(index);
    }
    return left;
  }

  void Pair(std::size_t a, std::size_t b) {
    matching_.ofA[a] = b;
    matching_.ofB[b] = a;
  }

  bool IsLeft(std::size_t a, std::size_t b) const {
    return matching_.ofA[a] == kNoElement && matching_.ofB[b] == kNoElement;
  }

  /// Pairs two elements that are equal, and what is in them.
  void PairWhole(std::size_t a, std::size_t b) {
    for (std::size_t offset = 0; offset <= a_.elements[a].inside; ++offset) {
      if (IsLeft(a + offset, b + offset)) Pair(a + offset, b + offset);
    }
  }

  /// Pairs what is equal in two lists, in the same order.
  void AlignLists(std::size_t groupA, std::size_t groupB) {
    const Indexes listA = LeftIn(a_, groupA, matching_.ofA), listB = LeftIn(b_, groupB, matching_.ofB);
    const std::vector<int> contentsA = NumbersOf(listA, traitsA_, &Traits::content);
    const std::vector<int> contentsB = NumbersOf(listB, traitsB_, &Traits::content);
    for (const auto& [a, b] : Align(contentsA, contentsB)) {
      PairWhole(listA[a], listB[b]);
      const int identityA = traitsA_[listA[a]].identity, identityB = traitsB_[listB[b]].identity;
      if (identityA < 0 || identityB < 0) continue;
      ++withIdentity_;
      sameIdentity_ += identityA == identityB;
    }
  }

  /// Pairs groups that are equal wherever they are, but empty ones.
  void PairEqualGroups() {
    Indexes groupsA = LeftGroups(a_, matching_.ofA), groupsB = LeftGroups(b_, matching_.ofB);
    std::erase_if(groupsA, [this](std::size_t a) { return a_.elements[a].inside == 0; });
    std::erase_if(groupsB, [this](std::size_t b) { return b_.elements[b].inside == 0; });
    for (const auto& [a, b] : PairByRank(NumbersOf(groupsA, traitsA_, &Traits::content),
                                         NumbersOf(groupsB, traitsB_, &Traits::content))) {
      if (IsLeft(groupsA[a], groupsB[b])) PairWhole(groupsA[a], groupsB[b]);
    }
  }

  void MatchGroupsOf(std::size_t groupA, std::size_t groupB) {
    Indexes listA = LeftIn(a_, groupA, matching_.ofA), listB = LeftIn(b_, groupB, matching_.ofB);
    std::erase_if(listA, [this](std::size_t a) { return !a_.elements[a].IsGroup(); });
    std::erase_if(listB, [this](std::size_t b) { return !b_.elements[b].IsGroup(); });
    MatchGroups(listA, listB);
  }

  void MatchGroups(const Indexes& groupsA, const Indexes& groupsB) {
    PairBest(groupsA, groupsB, [this](std::size_t a, std::size_t b) {
      const std::vector<int>&insideA = traitsA_[a].inside, &insideB = traitsB_[b].inside;
      std::vector<int> common;
      std::set_intersection(insideA.begin(), insideA.end(), insideB.begin(), insideB.end(),
                            std::back_inserter(common));
      if (common.empty()) return kNever;
      return static_cast<long>(insideA.size() + insideB.size() - 2 * common.size());
    });
    for (const std::size_t a : groupsA) {
      if (matching_.ofA[a] == kNoElement) continue;
      AlignLists(a, matching_.ofA[a]);
      MatchGroupsOf(a, matching_.ofA[a]);
    }
  }

  bool IdentitiesCount() const { return 2 * sameIdentity_ >= withIdentity_; }

  /// The group on page b that answers to the one that an element of page a is in.
  std::size_t ListOfA(std::size_t index) const {
    const std::size_t group = a_.elements[index].group;
    if (group == kNoElement) return kNoElement;
    return matching_.ofA[group] == kNoElement ? kNoList : matching_.ofA[group];
  }

  int InList(int number, std::size_t list) {
    if (list == kNoList) return -1;
    return numbering_.Of("list\n" + std::to_string(list) + "\n" + std::to_string(number));
  }

  /// The elements without a partner that have the key, groups aside, and their keys.
  struct Left {
    Indexes elements;
    std::vector<int> keys;

    void Add(std::size_t index, int key) {
      if (key < 0) return;
      elements.push_back(index);
      keys.push_back(key);
    }
  };
  std::pair<Left, Left> LeftWith(const Key& key) const {
    std::pair<Left, Left> left;
    for (std::size_t index = 0; index < matching_.ofA.size(); ++index) {
      if (matching_.ofA[index] != kNoElement || a_.elements[index].IsGroup()) continue;
      left.first.Add(index, key(traitsA_[index], ListOfA(index)));
    }
    for (std::size_t index = 0; index < matching_.ofB.size(); ++index) {
      if (matching_.ofB[index] != kNoElement || b_.elements[index].IsGroup()) continue;
      left.second.Add(index, key(traitsB_[index], b_.elements[index].group));
    }
    return left;
  }

  void PairEqual(const Key& key) {
    const auto [leftA, leftB] = LeftWith(key);
    for (const auto& [a, b] : PairByRank(leftA.keys, leftB.keys)) Pair(leftA.elements[a], leftB.elements[b]);
  }

  /// Pairs those of one key that differ in the fewest properties.
  void PairLike(const Key& key) {
    const auto [leftA, leftB] = LeftWith(key);
    std::map<int, std::pair<Indexes, Indexes>> byKey;
    for (std::size_t at = 0; at < leftA.keys.size(); ++at)
      byKey[leftA.keys[at]].first.push_back(leftA.elements[at]);
    for (std::size_t at = 0; at < leftB.keys.size(); ++at)
      byKey[leftB.keys[at]].second.push_back(leftB.elements[at]);
    for (const auto& [number, lists] : byKey) {
      PairBest(lists.first, lists.second, [this](std::size_t a, std::size_t b) {
        const std::vector<int>&valuesA = traitsA_[a].values, &valuesB = traitsB_[b].values;
        long differing = 0;
        for (std::size_t at = 0; at < valuesA.size(); ++at) differing += valuesA[at] != valuesB[at];
        return 2 * differing <= static_cast<long>(valuesA.size()) ? differing : kNever;
      });
    }
  }

  /// Pairs each with the one of the least cost, the least of all first.
  void PairBest(const Indexes& listA, const Indexes& listB, const Cost& cost) {
    if (listA.empty() || listB.empty()) return;
    if (listA.size() > kMostComparedPairs / listB.size()) return PairMany(listA, listB, cost);
    std::vector<std::tuple<long, std::size_t, std::size_t>> pairs;
    for (const std::size_t a : listA) {
      for (const std::size_t b : listB) {
        if (const long found = cost(a, b); found != kNever) pairs.emplace_back(found, a, b);
      }
    }
    std::sort(pairs.begin(), pairs.end());
    for (const auto& [found, a, b] : pairs) {
      if (IsLeft(a, b)) Pair(a, b);
    }
  }

  void PairMany(Indexes listA, Indexes listB, const Cost& cost) {
    for (int Traits::*trait : {&Traits::look, &Traits::spot, &Traits::elementClass}) {
      for (const auto& [a, b] :
           PairByRank(NumbersOf(listA, traitsA_, trait), NumbersOf(listB, traitsB_, trait))) {
        if (cost(listA[a], listB[b]) != kNever) Pair(listA[a], listB[b]);
      }
      std::erase_if(listA, [this](std::size_t a) { return matching_.ofA[a] != kNoElement; });
      std::erase_if(listB, [this](std::size_t b) { return matching_.ofB[b] != kNoElement; });
    }
  }

  const PageSnapshot &a_, &b_;
  Numbering numbering_;
  PageTraits traitsA_, traitsB_;
  ElementMatching matching_;
  /// Of the equal elements that have identities on both pages: how many, and how many have the same.
  std::size_t withIdentity_ = 0, sameIdentity_ = 0;
};

}  // namespace

ElementMatching MatchElements(const PageSnapshot& a, const PageSnapshot& b) { return Matching(a, b).Find(); }

}  // namespace quenzel7::cli
