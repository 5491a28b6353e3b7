#include "server/services/rows.h"

#include <gtest/gtest.h>

#include <string>

namespace quenzel7::server {
namespace {

using automation::Array;
using automation::Variant;
using automation::VariantKind;

TEST(ArrayOf, IsAnArrayOfVariantsFromZero) {
  const Variant value = ArrayOf({Long{5}, "text", Variant()});
  const Array& array = value.Elements();
  EXPECT_EQ(array.ElementKind(), VariantKind::Variant);
  EXPECT_EQ(array.Dimensions(), 1);
  EXPECT_EQ(array.LowerBound(1), 0);
  EXPECT_EQ(array.UpperBound(1), 2);
  EXPECT_EQ(array.At(0), Variant(Long{5}));
  EXPECT_EQ(array.At(1), Variant("text"));
  EXPECT_EQ(array.At(2), Variant());
  EXPECT_EQ(ArrayOf({}).Elements().UpperBound(1), -1);
}

TEST(Rows, AreArraysOfTheFieldsOfEachEntry) {
  const std::vector<std::string> entries = {"one", "three"};
  const Variant rows = Rows(entries, [](const std::string& entry) {
    return Fields{entry, static_cast<Long>(entry.size())};
  });
  EXPECT_EQ(rows, ArrayOf({ArrayOf({"one", Long{3}}), ArrayOf({"three", Long{5}})}));
}

}  // namespace
}  // namespace quenzel7::server
