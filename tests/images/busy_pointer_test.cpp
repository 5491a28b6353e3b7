#include "images/busy_pointer.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace quenzel7 {
namespace {

/// Notes the pointers, and refuses those that it is told to.
class NotingFrame final : public corvane1::HostFrame {
 public:
  std::vector<Long> pointers;
  Long refused = -1;

  void SetPointer(Long pointer) override {
    pointers.push_back(pointer);
    if (pointer == refused) throw std::runtime_error("no pointer");
  }
  void AddOutput(const std::string&, Long) override {}
  void InterruptWork() override {}
  void Refresh(Long, Long) override {}
};

class TheBusyPointer : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current().hostFrame = frame_; }
  void TearDown() override { Platform::Current() = Platform(); }
  const std::shared_ptr<NotingFrame> frame_ = std::make_shared<NotingFrame>();
};

TEST_F(TheBusyPointer, IsShownWhileItLives) {
  {
    const BusyPointer busy;
    EXPECT_EQ(frame_->pointers, (std::vector<Long>{11}));
  }
  EXPECT_EQ(frame_->pointers, (std::vector<Long>{11, 0}));
}

TEST_F(TheBusyPointer, GoesWhenAnErrorEndsTheWork) {
  EXPECT_THROW(
      {
        const BusyPointer busy;
        throw std::logic_error("work");
      },
      std::logic_error);
  EXPECT_EQ(frame_->pointers, (std::vector<Long>{11, 0}));
}

TEST_F(TheBusyPointer, ThatCannotBePutBackHidesNoError) {
  frame_->refused = 0;
  { const BusyPointer busy; }
  EXPECT_THROW(
      {
        const BusyPointer busy;
        throw std::logic_error("work");
      },
      std::logic_error);
  EXPECT_EQ(frame_->pointers, (std::vector<Long>{11, 0, 11, 0}));
}

TEST_F(TheBusyPointer, ThatCannotBeShownIsAnError) {
  frame_->refused = 11;
  EXPECT_THROW(const BusyPointer busy, std::runtime_error);
  EXPECT_EQ(frame_->pointers, (std::vector<Long>{11}));
}

}  // namespace
}  // namespace quenzel7
