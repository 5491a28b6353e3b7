#include "platform/automation/collection.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/class_info.h"
#include "platform/automation/property_bag.h"
#include "tests/support/raises.h"

namespace quenzel7::automation {
namespace {

std::vector<Long> Numbers(const Collection& collection) {
  std::vector<Long> numbers;
  for (Long place = 1; place <= collection.Count(); ++place) {
    numbers.push_back(To<Long>(collection.Item(place)));
  }
  return numbers;
}

TEST(Collection, BeginsEmpty) { EXPECT_EQ(Collection().Count(), 0); }

TEST(Collection, KeepsValuesInOrderCountedFromOne) {
  Collection collection;
  collection.Add(Long{30});
  collection.Add(Long{10});
  collection.Add(Long{20});
  EXPECT_EQ(Numbers(collection), (std::vector<Long>{30, 10, 20}));
}

TEST(Collection, RaisesSubscriptOutsideItsPlaces) {
  Collection collection;
  EXPECT_RAISES(9, "item 1 of a collection of 0 was asked for", collection.Item(1));
  collection.Add(Long{1});
  collection.Add(Long{2});
  EXPECT_RAISES(9, "item 0 of a collection of 2 was asked for", collection.Item(0));
  EXPECT_RAISES(9, "item 3 of a collection of 2 was asked for", collection.Item(3));
  EXPECT_RAISES(9, "item -1 of a collection of 2 was asked for", collection.Remove(-1));
  EXPECT_RAISES(9, "item 3 of a collection of 2 was asked for", collection.Remove(3));
  EXPECT_EQ(collection.Count(), 2);
}

TEST(Collection, FindsValuesByKeyWithoutRegardToCase) {
  Collection collection;
  collection.Add(Long{1}, "Alpha");
  collection.Add(Long{2}, "[z@`{");
  EXPECT_EQ(collection.Item("aLPHA"), Variant(Long{1}));
  EXPECT_EQ(collection.Item("[Z@`{"), Variant(Long{2}));
}

TEST(Collection, OnlyLettersFold) {
  Collection collection;
  collection.Add(Long{1}, "@");
  collection.Add(Long{2}, "`");
  collection.Add(Long{3}, "[");
  collection.Add(Long{4}, "{");
  EXPECT_EQ(collection.Item("`"), Variant(Long{2}));
  EXPECT_EQ(collection.Item("{"), Variant(Long{4}));
}

TEST(Collection, RaisesInvalidCallForAnUnknownKey) {
  Collection collection;
  collection.Add(Long{1}, "a");
  collection.Add(Long{2});
  EXPECT_RAISES(5, "the collection has no key \"b\"", collection.Item("b"));
  EXPECT_RAISES(5, "the collection has no key \"b\"", collection.Remove("b"));
  EXPECT_EQ(collection.Count(), 2);
}

TEST(Collection, AnEmptyKeyIsNone) {
  Collection collection;
  collection.Add(Long{1}, "");
  collection.Add(Long{2}, "");
  EXPECT_EQ(collection.Count(), 2);
  EXPECT_RAISES(5, "the collection has no key \"\"", collection.Item(""));
}

TEST(Collection, RefusesAKeyThatIsThereInAnyCase) {
  Collection collection;
  collection.Add(Long{1}, "Key");
  EXPECT_RAISES(457, "the key \"kEY\" is already in the collection", collection.Add(Long{2}, "kEY"));
  EXPECT_EQ(Numbers(collection), (std::vector<Long>{1}));
  EXPECT_EQ(collection.Item("key"), Variant(Long{1}));
}

TEST(Collection, RefusesFoldedKeysAtBothEndsOfTheAlphabet) {
  for (const char* key : {"A", "Z", "m"}) {
    Collection collection;
    collection.Add(Long{1}, key);
    const std::string other(1, static_cast<char>(*key ^ 0x20));
    EXPECT_RAISES(457, "the key \"" + other + "\" is already in the collection",
                  collection.Add(Long{2}, other));
  }
}

TEST(Collection, RemoveTakesOutByPlace) {
  Collection collection;
  for (Long number = 1; number <= 3; ++number) collection.Add(number);
  collection.Remove(2);
  EXPECT_EQ(Numbers(collection), (std::vector<Long>{1, 3}));
  collection.Remove(1);
  EXPECT_EQ(Numbers(collection), (std::vector<Long>{3}));
}

TEST(Collection, RemoveTakesOutByKey) {
  Collection collection;
  collection.Add(Long{1}, "a");
  collection.Add(Long{2}, "b");
  collection.Add(Long{3}, "c");
  collection.Remove("B");
  EXPECT_EQ(Numbers(collection), (std::vector<Long>{1, 3}));
  EXPECT_EQ(collection.Item("c"), Variant(Long{3}));
}

TEST(Collection, RemovalFreesTheKey) {
  Collection collection;
  collection.Add(Long{1}, "Key");
  collection.Remove(1);
  collection.Add(Long{2}, "KEY");
  collection.Remove("key");
  collection.Add(Long{3}, "kEy");
  EXPECT_EQ(Numbers(collection), (std::vector<Long>{3}));
  EXPECT_EQ(collection.Item("key"), Variant(Long{3}));
}

TEST(Collection, RemovalOfOneKeyKeepsTheOthersTaken) {
  Collection collection;
  collection.Add(Long{1}, "a");
  collection.Add(Long{2}, "b");
  collection.Remove("a");
  EXPECT_RAISES(457, "the key \"B\" is already in the collection", collection.Add(Long{3}, "B"));
}

TEST(Collection, AddsItsOwnItem) {
  Collection collection;
  collection.Add("first");
  for (int times = 0; times < 20; ++times) collection.Add(collection.Item(1));
  EXPECT_EQ(collection.Count(), 21);
  EXPECT_EQ(collection.Item(21), Variant("first"));
}

TEST(Collection, ObjectAtGivesTheObjectAsItsClass) {
  Collection collection;
  const auto bag = std::make_shared<PropertyBag>();
  collection.Add(bag);
  EXPECT_EQ(collection.ObjectAt<PropertyBag>(1), bag);
}

TEST(Collection, ObjectAtRaisesWhatIsWrong) {
  Collection collection;
  collection.Add(std::make_shared<PropertyBag>());
  collection.Add(ObjectRef());
  collection.Add(Variant());
  collection.Add(Long{4});
  EXPECT_RAISES(13, "type mismatch: an object of class PropertyBag does not fit here",
                collection.ObjectAt<Collection>(1));
  EXPECT_RAISES(91, "an object was expected and none was given", collection.ObjectAt<PropertyBag>(2));
  EXPECT_RAISES(91, "an object was expected and none was given", collection.ObjectAt<PropertyBag>(3));
  EXPECT_RAISES(13, "type mismatch: Long where an object was expected", collection.ObjectAt<PropertyBag>(4));
  EXPECT_RAISES(9, "item 5 of a collection of 4 was asked for", collection.ObjectAt<PropertyBag>(5));
}

TEST(Collection, LateBoundHostsSeeItsMembers) {
  EXPECT_EQ(Collection().Class().name, "Collection");
  EXPECT_EQ(Collection().Class().Default().Name(), "Collection");
  EXPECT_EQ(Collection().Class().Default().Slots(),
            (std::vector<std::string>{"call Add(Variant, [Variant])", "get Count() As Long",
                                      "call Item(Variant) As Variant", "call Remove(Variant)",
                                      "get _NewEnum() As Object"}));
}

TEST(Collection, LateBoundHostsCanCreateIt) {
  const ObjectRef object = Collection().Class().create();
  EXPECT_EQ(GetByName(*object, "Count"), Variant(Long{0}));
  EXPECT_NE(std::dynamic_pointer_cast<Collection>(object), nullptr);
}

TEST(Collection, LateBoundAddTakesAnOptionalKey) {
  Collection collection;
  EXPECT_EQ(InvokeByName(collection, "add", {Long{1}}), Variant());
  InvokeByName(collection, "Add", {Long{2}, "key"});
  InvokeByName(collection, "Add", {Long{3}, Variant()});
  EXPECT_EQ(GetByName(collection, "count"), Variant(Long{3}));
  EXPECT_EQ(collection.Item("Key"), Variant(Long{2}));
  EXPECT_RAISES(457, "the key \"KEY\" is already in the collection",
                InvokeByName(collection, "Add", {Long{4}, "KEY"}));
  EXPECT_RAISES(449, "Collection.Add takes 1 to 2 arguments, 0 were given", InvokeByName(collection, "Add"));
}

TEST(Collection, LateBoundItemAndRemoveTakeAPlaceOrAKey) {
  Collection collection;
  collection.Add(Long{10}, "2");
  collection.Add(Long{20});
  EXPECT_EQ(InvokeByName(collection, "Item", {Long{2}}), Variant(Long{20}));
  EXPECT_EQ(InvokeByName(collection, "Item", {"2"}), Variant(Long{10}));
  EXPECT_EQ(InvokeByName(collection, "Item", {1.5}), Variant(Long{20}));
  EXPECT_RAISES(94, "invalid use of Null: a number was expected",
                InvokeByName(collection, "Item", {Variant(NullValue{})}));
  InvokeByName(collection, "Remove", {"2"});
  EXPECT_EQ(Numbers(collection), (std::vector<Long>{20}));
  InvokeByName(collection, "Remove", {Byte{1}});
  EXPECT_EQ(collection.Count(), 0);
  EXPECT_RAISES(9, "item 1 of a collection of 0 was asked for",
                InvokeByName(collection, "Remove", {Long{1}}));
  EXPECT_RAISES(5, "the collection has no key \"x\"", InvokeByName(collection, "Item", {"x"}));
}

TEST(Collection, CountCannotBeWritten) {
  Collection collection;
  EXPECT_RAISES(383, "Collection.Count can be read only", PutByName(collection, "Count", Long{1}));
}

TEST(Collection, ItsMembersAreDocumentedAndUnmarked) {
  std::vector<std::string> words;
  for (const Member& member : Collection().Class().Default().Members()) {
    words.push_back(std::string(member.name) + ": " + std::string(member.documentation));
    EXPECT_EQ(member.mark, Mark::None) << member.name;
  }
  EXPECT_EQ(words, (std::vector<std::string>{"Add: Appends a value, under a key if one is given.",
                                             "Count: Number of values.",
                                             "Item: The value at a place from 1, or under a key.",
                                             "Remove: Takes the value at a place or under a key out.",
                                             "_NewEnum: Walks over the values in order."}));
}

/// Runs something when it goes.
class LastWord final : public Object {
 public:
  explicit LastWord(std::function<void()> word) : word_(std::move(word)) {}
  ~LastWord() override { word_(); }
  const ClassInfo& Class() const override { return Collection::ClassOf(); }

 private:
  std::function<void()> word_;
};

TEST(Collection, MayBeUsedByAnObjectThatGoesWithItsPlace) {
  Collection collection;
  collection.Add(std::make_shared<LastWord>([&collection] {
    for (Long number = 0; number < 100; ++number) collection.Add(number);
  }));
  collection.Add("next");
  collection.Remove(1);
  ASSERT_EQ(collection.Count(), 101);
  EXPECT_EQ(collection.Item(1), Variant("next"));
  EXPECT_EQ(collection.Item(101), Variant(Long{99}));
}

}  // namespace
}  // namespace quenzel7::automation
