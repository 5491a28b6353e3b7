#include "platform/gdi/scratch.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace quenzel7::gdi {
namespace {

struct Thing {
  int number;
};

TEST(Scratch, IsEmptyAndKeepsTheMemoryOfTheOneBefore) {
  const Thing* memory = nullptr;
  {
    Scratch<Thing> first;
    first->assign(100, Thing{1});
    memory = first->data();
  }
  Scratch<Thing> second;
  EXPECT_TRUE(second->empty());
  EXPECT_EQ(second->capacity(), 100u);
  EXPECT_EQ(second->data(), memory);
}

TEST(Scratch, InsideAnotherHasMemoryOfItsOwn) {
  Scratch<Thing> outer;
  outer->push_back(Thing{1});
  {
    Scratch<Thing> inner;
    inner->push_back(Thing{2});
    EXPECT_EQ((*inner)[0].number, 2);
  }
  EXPECT_EQ(outer->size(), 1u);
  EXPECT_EQ((*outer)[0].number, 1);
}

TEST(Scratch, FourAtATimeGetTheirMemoryBack) {
  struct Other {
    int number;
  };
  const auto capacities = [](std::size_t reserved) {
    std::array<Scratch<Other>, 5> five;
    std::vector<std::size_t> found;
    for (auto& each : five) {
      found.push_back(each->capacity());
      if (reserved > 0) each->reserve(reserved + found.size());
    }
    return found;
  };
  EXPECT_EQ(capacities(10), (std::vector<std::size_t>{0, 0, 0, 0, 0}));
  // The last to begin was the first to end; there was no room for the first one's.
  EXPECT_EQ(capacities(0), (std::vector<std::size_t>{12, 13, 14, 15, 0}));
}

struct LateThing {
  int number;
};
std::size_t lateCapacity = 99;

// Ends after what the thread keeps, as it began before.
struct Late {
  ~Late() {
    const Scratch<LateThing> late;
    lateCapacity = late->capacity();
  }
};

TEST(Scratch, OfTheLastObjectOfAThreadHasMemoryOfItsOwn) {
  std::thread([] {
    thread_local Late late;
    EXPECT_EQ(&late, &late);
    Scratch<LateThing>()->reserve(50);
    EXPECT_EQ(Scratch<LateThing>()->capacity(), 50u);
  }).join();
  EXPECT_EQ(lateCapacity, 0u);
}

}  // namespace
}  // namespace quenzel7::gdi
