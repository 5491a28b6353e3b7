#include "server/surface/live_surfaces.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "platform/gdi/gdi.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

constexpr const char* kNone = "there is no such surface, or it was destroyed";

TEST(LiveSurfaces, AreKnownFromMakingToEnding) {
  const std::size_t before = LiveSurfaceCount(), handles = gdi::LiveObjects();
  Quenzel7Surface& surface = NewSurface(3, 2);
  EXPECT_EQ(LiveSurfaceCount(), before + 1);
  EXPECT_EQ(&LiveSurface(&surface), &surface);
  EXPECT_EQ(surface.painted.Width(), 3);
  EXPECT_EQ(surface.painted.Height(), 2);
  EXPECT_EQ(surface.painted.BitsPerPixel(), 32);
  EndSurface(&surface);
  EXPECT_EQ(LiveSurfaceCount(), before);
  EXPECT_EQ(gdi::LiveObjects(), handles);
}

TEST(LiveSurfaces, APointerToNoneIsRefusedUnseen) {
  Quenzel7Surface* const ended = &NewSurface(1, 1);
  EndSurface(ended);
  auto* const foreign = reinterpret_cast<Quenzel7Surface*>(0x10);
  for (Quenzel7Surface* const wrong : {ended, foreign}) {
    EXPECT_RAISES(E_INVALIDARG, kNone, LiveSurface(wrong));
    EXPECT_RAISES(E_INVALIDARG, kNone, EndSurface(wrong));
  }
}

TEST(LiveSurfaces, BelongToTheThreadThatMadeThem) {
  const std::size_t before = LiveSurfaceCount();
  Quenzel7Surface& surface = NewSurface(1, 1);
  std::thread([&surface] {
    constexpr const char* kText = "the surface belongs to another thread, the one that made it";
    EXPECT_RAISES(RPC_E_WRONG_THREAD, kText, LiveSurface(&surface));
    EXPECT_RAISES(RPC_E_WRONG_THREAD, kText, EndSurface(&surface));
  }).join();
  EXPECT_EQ(LiveSurfaceCount(), before + 1);
  EndSurface(&surface);
}

TEST(LiveSurfaces, EndWithTheirThreadAndNoOthersDo) {
  const std::size_t before = LiveSurfaceCount();
  Quenzel7Surface& own = NewSurface(1, 1);
  Quenzel7Surface* left = nullptr;
  std::thread([&] {
    left = &NewSurface(2, 2);
    NewSurface(2, 2);
    EXPECT_EQ(LiveSurfaceCount(), before + 3);
  }).join();
  EXPECT_EQ(LiveSurfaceCount(), before + 1);
  EXPECT_RAISES(E_INVALIDARG, kNone, LiveSurface(left));
  EXPECT_EQ(&LiveSurface(&own), &own);
  EndSurface(&own);
}

TEST(LiveSurfaces, HaveMeasuresFrom1To32767) {
  const std::size_t before = LiveSurfaceCount();
  const auto refused = [](LONG width, LONG height, const std::string& size) {
    EXPECT_RAISES(E_INVALIDARG, "a surface cannot have " + size + " pixels: measures go from 1 to 32767",
                  NewSurface(width, height));
  };
  refused(0, 1, "0 x 1");
  refused(1, 0, "1 x 0");
  refused(-1, 1, "-1 x 1");
  refused(32768, 1, "32768 x 1");
  refused(1, 32768, "1 x 32768");
  EXPECT_EQ(LiveSurfaceCount(), before);
  EndSurface(&NewSurface(32767, 1));
  EndSurface(&NewSurface(1, 32767));
}

TEST(LiveSurfaces, TellWhenThereIsNoRoom) {
  const std::size_t before = LiveSurfaceCount(), handles = gdi::LiveObjects();
  EXPECT_RAISES(E_OUTOFMEMORY, "there is no room for a surface of 32767 x 32767 pixels",
                NewSurface(32767, 32767));
  EXPECT_EQ(LiveSurfaceCount(), before);
  EXPECT_EQ(gdi::LiveObjects(), handles);
}

}  // namespace
}  // namespace quenzel7::server
