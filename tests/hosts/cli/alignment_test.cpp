#include "hosts/cli/alignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace quenzel7::cli {
namespace {

using Pairs = std::vector<PlacePair>;

std::vector<int> Numbers(const std::string& letters) { return {letters.begin(), letters.end()}; }

/// The letters that an alignment found.
std::string Common(const std::string& a, const std::string& b) {
  std::string common;
  for (const PlacePair& pair : Align(Numbers(a), Numbers(b))) common += a[pair.first];
  return common;
}

/// The length of a longest common subsequence.
std::size_t CommonLength(const std::vector<int>& a, const std::vector<int>& b) {
  std::vector<std::size_t> above(b.size() + 1), row(b.size() + 1);
  for (const int number : a) {
    for (std::size_t at = 0; at < b.size(); ++at) {
      row[at + 1] = number == b[at] ? above[at] + 1 : std::max(above[at + 1], row[at]);
    }
    above = row;
  }
  return above.back();
}

void ExpectCommon(const std::vector<int>& a, const std::vector<int>& b, const Pairs& pairs) {
  for (std::size_t at = 0; at < pairs.size(); ++at) {
    ASSERT_LT(pairs[at].first, a.size());
    ASSERT_LT(pairs[at].second, b.size());
    ASSERT_EQ(a[pairs[at].first], b[pairs[at].second]);
    if (at == 0) continue;
    ASSERT_LT(pairs[at - 1].first, pairs[at].first);
    ASSERT_LT(pairs[at - 1].second, pairs[at].second);
  }
}

TEST(Alignment, NothingIsAlignedWithNothing) {
  EXPECT_EQ(Align({}, {}), Pairs());
  EXPECT_EQ(Align(Numbers("ab"), {}), Pairs());
  EXPECT_EQ(Align({}, Numbers("ab")), Pairs());
  EXPECT_EQ(Align(Numbers("ab"), Numbers("cd")), Pairs());
}

TEST(Alignment, EqualSequencesAreAlignedAllAlong) {
  EXPECT_EQ(Align(Numbers("aab"), Numbers("aab")), (Pairs{{0, 0}, {1, 1}, {2, 2}}));
}

TEST(Alignment, WhatCameAndWentIsLeftOut) {
  EXPECT_EQ(Align(Numbers("abcd"), Numbers("abXcd")), (Pairs{{0, 0}, {1, 1}, {2, 3}, {3, 4}}));
  EXPECT_EQ(Align(Numbers("abXcd"), Numbers("abcd")), (Pairs{{0, 0}, {1, 1}, {3, 2}, {4, 3}}));
  EXPECT_EQ(Align(Numbers("Xab"), Numbers("abY")), (Pairs{{1, 0}, {2, 1}}));
}

TEST(Alignment, BeginningAndEndDoNotTakeTheSameTwice) {
  EXPECT_EQ(Align(Numbers("aa"), Numbers("aaa")), (Pairs{{0, 0}, {1, 1}}));
  EXPECT_EQ(Align(Numbers("aba"), Numbers("aa")), (Pairs{{0, 0}, {2, 1}}));
}

TEST(Alignment, TheCommonSubsequenceIsALongestOne) {
  EXPECT_EQ(Common("abcbdab", "bdcaba").size(), 4u);
  EXPECT_EQ(Common("xaby", "yabx"), "ab");
}

TEST(Alignment, ShortSequencesAreAlignedAsWellAsCanBe) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    const int letters = 2 + round % 5;
    const auto sequence = [&] {
      std::vector<int> numbers(random() % 20);
      for (int& number : numbers) number = static_cast<int>(random() % static_cast<unsigned>(letters));
      return numbers;
    };
    const std::vector<int> a = sequence(), b = sequence();
    const Pairs pairs = Align(a, b);
    ExpectCommon(a, b, pairs);
    EXPECT_EQ(pairs.size(), CommonLength(a, b));
  }
}

TEST(Alignment, OfLongSequencesOneThatHasMovedIsLeftOut) {
  std::vector<int> a(3000), b;
  std::iota(a.begin(), a.end(), 0);
  b = a;
  // Neither the beginning nor the end is common, and what lies between is too much for a table.
  std::rotate(b.begin(), b.begin() + 1, b.end());
  const Pairs pairs = Align(a, b);
  ExpectCommon(a, b, pairs);
  EXPECT_EQ(pairs.size(), 2999u);
}

TEST(Alignment, OfLongSequencesWhatLiesBetweenTheFixedPointsIsAligned) {
  // One more 1 at the beginning: the k-th 1 of b is no longer the k-th of a, so that only the others are
  // fixed points.
  std::vector<int> a, b = {1};
  for (int at = 10; at < 2010; at += 2) {
    a.insert(a.end(), {at, at + 1, 1});
    b.insert(b.end(), {at, at + 1, 1});
  }
  a.push_back(2);
  b.push_back(3);
  const Pairs pairs = Align(a, b);
  ExpectCommon(a, b, pairs);
  EXPECT_EQ(pairs.size(), 3000u);
}

TEST(Alignment, LongSequencesWithoutAnythingInCommonTakeNoTime) {
  std::vector<int> a(100'000, 1), b(100'000, 2);
  EXPECT_EQ(Align(a, b), Pairs());
}

TEST(Alignment, ATableOfTheLargestSizeIsStillExact) {
  // 1000 by 1000 cells, in which ranks mislead: the first 1 of a belongs to the second one of b.
  std::vector<int> a(1000, 5), b(1000, 6);
  a[0] = 2, a[1] = 1;
  b[0] = 1, b[1] = 2, b[2] = 1;
  EXPECT_EQ(Align(a, b), (Pairs{{0, 1}, {1, 2}}));
  // One more is too many for a table.
  a.push_back(5);
  EXPECT_EQ(Align(a, b).size(), 1u);
}

TEST(LongestRising, KeepsAsManyAsCanBe) {
  using Indexes = std::vector<std::size_t>;
  const auto rising = [](const Indexes& numbers) { return LongestRising(numbers); };
  EXPECT_EQ(rising({}), Indexes());
  EXPECT_EQ(rising({5}), Indexes({0}));
  EXPECT_EQ(rising({1, 2, 3}), Indexes({0, 1, 2}));
  EXPECT_EQ(rising({3, 2, 1}).size(), 1u);
  EXPECT_EQ(rising({9, 1, 2, 0, 3}), Indexes({1, 2, 4}));
  EXPECT_EQ(rising({2, 0, 3, 1, 4}).size(), 3u);
  // Equal numbers do not rise.
  EXPECT_EQ(rising({4, 4}).size(), 1u);
}

TEST(LongestRising, IsRisingAndLongest) {
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::size_t> numbers(random() % 12);
    for (std::size_t& number : numbers) number = random() % 15;
    const auto indexes = LongestRising(numbers);
    std::size_t longest = 0;
    for (unsigned set = 0; set < 1u << numbers.size(); ++set) {
      std::vector<std::size_t> chosen;
      for (std::size_t at = 0; at < numbers.size(); ++at) {
        if (set >> at & 1) chosen.push_back(numbers[at]);
      }
      const bool rises =
          std::adjacent_find(chosen.begin(), chosen.end(), std::greater_equal<>()) == chosen.end();
      if (rises) longest = std::max(longest, chosen.size());
    }
    EXPECT_EQ(indexes.size(), longest);
    for (std::size_t at = 1; at < indexes.size(); ++at) {
      EXPECT_LT(indexes[at - 1], indexes[at]);
      EXPECT_LT(numbers[indexes[at - 1]], numbers[indexes[at]]);
    }
  }
}

TEST(PairByRank, HoldsTheFirstAgainstTheFirstAndSoOn) {
  EXPECT_EQ(PairByRank(Numbers("abab"), Numbers("bbxaaa")), (Pairs{{0, 3}, {1, 0}, {2, 4}, {3, 1}}));
  EXPECT_EQ(PairByRank(Numbers("aaa"), Numbers("a")), (Pairs{{0, 0}}));
  EXPECT_EQ(PairByRank(Numbers("ab"), Numbers("cd")), Pairs());
}

}  // namespace
}  // namespace quenzel7::cli
