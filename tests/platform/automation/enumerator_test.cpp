#include "platform/automation/enumerator.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/automation/call_by_name.h"
#include "platform/automation/class_info.h"
#include "platform/automation/collection.h"

namespace quenzel7::automation {
namespace {

/// The numbers that an enumerator has still to give.
std::vector<Long> Rest(Enumerator& enumerator) {
  std::vector<Long> rest;
  for (Variant value; enumerator.Next(value);) rest.push_back(To<Long>(value));
  return rest;
}

using Numbers = std::vector<Long>;

class CollectionEnumerator : public ::testing::Test {
 protected:
  CollectionEnumerator() {
    for (const Long number : {30, 10, 20}) collection_->Add(number);
  }
  Long Take(Enumerator& enumerator) {
    Variant value;
    EXPECT_TRUE(enumerator.Next(value));
    return To<Long>(value);
  }

  CollectionRef collection_ = std::make_shared<Collection>();
};

TEST_F(CollectionEnumerator, GivesTheValuesInOrder) {
  EXPECT_EQ(Rest(*collection_->NewEnum()), (Numbers{30, 10, 20}));
}

TEST_F(CollectionEnumerator, LeavesTheValueAloneWhenThereIsNoneLeft) {
  const EnumeratorRef enumerator = collection_->NewEnum();
  Rest(*enumerator);
  Variant value("untouched");
  EXPECT_FALSE(enumerator->Next(value));
  EXPECT_EQ(value, Variant("untouched"));
}

TEST_F(CollectionEnumerator, OfAnEmptyCollectionGivesNothing) {
  EXPECT_EQ(Rest(*std::make_shared<Collection>()->NewEnum()), Numbers{});
}

TEST_F(CollectionEnumerator, GivesWhatIsAddedMeanwhileAlsoAtTheEnd) {
  const EnumeratorRef enumerator = collection_->NewEnum();
  EXPECT_EQ(Take(*enumerator), 30);
  collection_->Add(Long{40});
  EXPECT_EQ(Rest(*enumerator), (Numbers{10, 20, 40}));
  collection_->Add(Long{50});
  EXPECT_EQ(Rest(*enumerator), Numbers{50});
}

TEST_F(CollectionEnumerator, GoesOnAtItsPlaceWhenValuesAreTakenOut) {
  const EnumeratorRef enumerator = collection_->NewEnum();
  Take(*enumerator);
  collection_->Remove(2);
  EXPECT_EQ(Rest(*enumerator), Numbers{20});
  collection_->Remove(1);
  EXPECT_EQ(Rest(*enumerator), Numbers{});
}

TEST_F(CollectionEnumerator, EndsWhereFewerValuesAreLeftThanItGave) {
  const EnumeratorRef enumerator = collection_->NewEnum();
  Take(*enumerator), Take(*enumerator);
  collection_->Remove(1), collection_->Remove(1);
  EXPECT_EQ(Rest(*enumerator), Numbers{});
}

TEST_F(CollectionEnumerator, BeginsAnewAfterReset) {
  const EnumeratorRef enumerator = collection_->NewEnum();
  Rest(*enumerator);
  enumerator->Reset();
  EXPECT_EQ(Rest(*enumerator), (Numbers{30, 10, 20}));
}

TEST_F(CollectionEnumerator, ACloneGoesOnFromTheSamePlaceByItself) {
  const EnumeratorRef enumerator = collection_->NewEnum();
  Take(*enumerator);
  const EnumeratorRef clone = enumerator->Clone();
  EXPECT_EQ(Rest(*clone), (Numbers{10, 20}));
  EXPECT_EQ(Rest(*enumerator), (Numbers{10, 20}));
}

TEST_F(CollectionEnumerator, EnumeratorsOfOneCollectionAreIndependent) {
  const EnumeratorRef first = collection_->NewEnum();
  Take(*first);
  EXPECT_EQ(Rest(*collection_->NewEnum()), (Numbers{30, 10, 20}));
}

TEST_F(CollectionEnumerator, HoldsTheCollection) {
  const std::weak_ptr<Collection> held = collection_;
  EnumeratorRef enumerator = collection_->NewEnum();
  collection_.reset();
  EXPECT_EQ(Rest(*enumerator), (Numbers{30, 10, 20}));
  EnumeratorRef clone = enumerator->Clone();
  enumerator.reset();
  clone->Reset();
  EXPECT_EQ(Rest(*clone), (Numbers{30, 10, 20}));
  clone.reset();
  EXPECT_TRUE(held.expired());
}

TEST_F(CollectionEnumerator, LateBoundHostsGetItFromTheMemberOfThatRole) {
  const Member& member = *Collection::ClassOf().Default().Find("_NewEnum");
  EXPECT_EQ(member.role, Role::Enumerator);
  const auto enumerator = To<EnumeratorRef>(GetByName(*collection_, "_NewEnum"));
  ASSERT_NE(enumerator, nullptr);
  EXPECT_EQ(Rest(*enumerator), (Numbers{30, 10, 20}));
}

TEST_F(CollectionEnumerator, ItsItemStandsForTheCollection) {
  EXPECT_EQ(Collection::ClassOf().Default().Find("Item")->role, Role::Value);
  EXPECT_EQ(Collection::ClassOf().Default().Find("Add")->role, Role::None);
}

TEST_F(CollectionEnumerator, HasNoMembersByNameAndIsNotCreatable) {
  const ClassInfo& info = collection_->NewEnum()->Class();
  EXPECT_EQ(info.name, "Enumerator");
  ASSERT_EQ(info.interfaces.size(), 1u);
  EXPECT_EQ(info.Default().Name(), "Enumerator");
  EXPECT_TRUE(info.Default().Members().empty());
  EXPECT_EQ(info.create, nullptr);
}

}  // namespace
}  // namespace quenzel7::automation
