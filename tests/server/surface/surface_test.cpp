#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "platform/files/whole_file.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"
#include "server/quenzel7_automation.h"
#include "server/surface/live_surfaces.h"
#include "tests/framework/handles_left.h"
#include "tests/support/failing_memory.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/png_files.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7 {
namespace {

constexpr ULONG kColor = 0x123456;
/// What stands in memory that is not written to.
constexpr ULONG kUntouched = 0xABABABAB;

class SurfaceTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(Quenzel7SurfaceCreate(3, 2, kColor, &surface_), S_OK); }
  void TearDown() override {
    if (surface_ != nullptr) {
      EXPECT_EQ(Quenzel7SurfaceDestroy(surface_), S_OK);
    }
    EXPECT_EQ(server::LiveSurfaceCount(), before_);
  }

  LONG Context() const {
    LONG hdc = 0;
    EXPECT_EQ(Quenzel7SurfaceContext(surface_, &hdc), S_OK);
    return hdc;
  }
  void Dot(LONG x, LONG y, gdi::COLORREF color) const {
    const gdi::RECT pixel{x, y, x + 1, y + 1};
    const gdi::OwnedObject brush(gdi::CreateSolidBrush(color));
    gdi::FillRect(Context(), &pixel, brush.Get());
  }
  std::vector<ULONG> Pixels() const {
    std::vector<ULONG> pixels(6, kUntouched);
    EXPECT_EQ(Quenzel7SurfacePixels(surface_, pixels.data(), 6), S_OK);
    return pixels;
  }

  const std::size_t before_ = server::LiveSurfaceCount();
  Quenzel7Surface* surface_ = nullptr;
};

TEST_F(SurfaceTest, HasItsSizeAllInOneColour) {
  LONG width = 0, height = 0;
  EXPECT_EQ(Quenzel7SurfaceSize(surface_, &width, &height), S_OK);
  EXPECT_EQ(width, 3);
  EXPECT_EQ(height, 2);
  EXPECT_EQ(Pixels(), std::vector<ULONG>(6, kColor));
}

TEST_F(SurfaceTest, TheHighestByteOfAColourMeansNothing) {
  Quenzel7Surface* other = nullptr;
  ASSERT_EQ(Quenzel7SurfaceCreate(1, 1, 0xFF0000FF, &other), S_OK);
  EXPECT_EQ(other->painted.Pixels()[0], 0x0000FFu);
  EXPECT_EQ(Quenzel7SurfaceDestroy(other), S_OK);
}

TEST_F(SurfaceTest, ShowsWhatIsDrawnOnItsContext) {
  Dot(1, 0, gdi::RGB(0xFF, 0x80, 0));
  Dot(2, 1, gdi::RGB(0, 0, 0xFF));
  EXPECT_EQ(Pixels(), (std::vector<ULONG>{kColor, 0xFF8000, kColor, kColor, kColor, 0x0000FF}));
}

TEST_F(SurfaceTest, PixelsHaveNothingInTheHighestByte) {
  surface_->painted.Pixels()[0] = 0xFF010203;
  EXPECT_EQ(Pixels()[0], 0x010203u);
}

TEST_F(SurfaceTest, PixelsNeedRoomForAll) {
  std::vector<ULONG> pixels(7, kUntouched);
  EXPECT_EQ(Quenzel7SurfacePixels(surface_, pixels.data(), 5), E_INVALIDARG);
  EXPECT_STREQ(Quenzel7LastError(), "there is room for 5 pixels, but the surface has 6");
  EXPECT_EQ(pixels[0], kUntouched);
  EXPECT_EQ(Quenzel7SurfacePixels(surface_, pixels.data(), 7), S_OK);
  EXPECT_EQ(pixels[5], kColor);
  EXPECT_EQ(pixels[6], kUntouched);
}

TEST_F(SurfaceTest, IsWrittenAsAPngFile) {
  const test::TemporaryFolder folder;
  Dot(1, 0, gdi::RGB(0xFF, 0x80, 0));
  ASSERT_EQ(Quenzel7SurfaceSavePng(surface_, folder.File("x.png").c_str()), S_OK);
  const test::Pixels read = test::ReadPngFile(folder.File("x.png"));
  EXPECT_EQ(read.width, 3);
  EXPECT_EQ(read.height, 2);
  EXPECT_EQ(read.words, Pixels());
}

TEST_F(SurfaceTest, GivesTheBytesOfThatFile) {
  const test::TemporaryFolder folder;
  ASSERT_EQ(Quenzel7SurfaceSavePng(surface_, folder.File("x.png").c_str()), S_OK);
  SAFEARRAY* bytes = nullptr;
  ASSERT_EQ(Quenzel7SurfacePng(surface_, &bytes), S_OK);
  VARTYPE cells = VT_EMPTY;
  EXPECT_EQ(SafeArrayGetVartype(bytes, &cells), S_OK);
  EXPECT_EQ(cells, VT_UI1);
  ASSERT_EQ(SafeArrayGetDim(bytes), 1u);
  EXPECT_EQ(bytes->rgsabound[0].lLbound, 0);
  EXPECT_EQ(std::string(static_cast<const char*>(bytes->pvData), bytes->rgsabound[0].cElements),
            files::ReadWholeFile(folder.File("x.png"), "file"));
  EXPECT_EQ(SafeArrayDestroy(bytes), S_OK);
}

TEST_F(SurfaceTest, TellsWhichFileCannotBeWrittenAndWhy) {
  EXPECT_EQ(Quenzel7SurfaceSavePng(surface_, "/nowhere/x.png"), E_FAIL);
  EXPECT_STREQ(Quenzel7LastError(), "picture /nowhere/x.png cannot be written: No such file or directory");
  const test::TemporaryFolder folder;
  const test::FileSizeLimit full(0);
  EXPECT_EQ(Quenzel7SurfaceSavePng(surface_, folder.File("x.png").c_str()), E_FAIL);
  EXPECT_EQ(Quenzel7LastError(), "picture " + folder.File("x.png") + " cannot be written: File too large");
}

TEST_F(SurfaceTest, RefusesSizesThatCannotBe) {
  Quenzel7Surface* other = surface_;
  EXPECT_EQ(Quenzel7SurfaceCreate(0, 2, kColor, &other), E_INVALIDARG);
  EXPECT_EQ(other, nullptr);
  EXPECT_STREQ(Quenzel7LastError(), "a surface cannot have 0 x 2 pixels: measures go from 1 to 32767");
  EXPECT_EQ(Quenzel7SurfaceCreate(2, 32768, kColor, &other), E_INVALIDARG);
}

TEST_F(SurfaceTest, TellsWhenThereIsNoRoom) {
  Quenzel7Surface* other = surface_;
  EXPECT_EQ(Quenzel7SurfaceCreate(32767, 32767, kColor, &other), E_OUTOFMEMORY);
  EXPECT_EQ(other, nullptr);
  for (const std::size_t handles : {0, 1}) {
    const test::HandlesLeft few(handles);
    EXPECT_EQ(Quenzel7SurfaceCreate(1, 1, kColor, &other), E_OUTOFMEMORY);
    EXPECT_STREQ(Quenzel7LastError(), "there is no room for a surface of 1 x 1 pixels");
  }
}

/// Lets one allocation after the other fail in a function of surfaces until none does; `work` then gives
/// S_OK.
template <class Work>
void ExpectToldAtEveryAllocation(const Work& work) {
  HRESULT result = E_OUTOFMEMORY;
  int failed = 0;
  for (; result != S_OK; ++failed) {
    {
      const test::Failing fails(failed);
      result = work();
    }
    ASSERT_TRUE(result == S_OK || result == E_OUTOFMEMORY) << failed << ": " << Quenzel7LastError();
  }
  EXPECT_GT(failed, 1) << "some allocations are made";
}

TEST_F(SurfaceTest, MakingTellsWantOfMemoryAndLeavesNothing) {
  const std::size_t handles = gdi::LiveObjects();
  Quenzel7Surface* other = nullptr;
  ExpectToldAtEveryAllocation([&] {
    const HRESULT result = Quenzel7SurfaceCreate(2, 2, kColor, &other);
    if (result == S_OK) return Quenzel7SurfaceDestroy(other);
    EXPECT_EQ(server::LiveSurfaceCount(), before_ + 1);
    EXPECT_EQ(gdi::LiveObjects(), handles);
    return result;
  });
}

TEST_F(SurfaceTest, EncodingTellsWantOfMemory) {
  ExpectToldAtEveryAllocation([&] {
    SAFEARRAY* bytes = nullptr;
    const HRESULT result = Quenzel7SurfacePng(surface_, &bytes);
    if (result == S_OK) SafeArrayDestroy(bytes);
    return result;
  });
}

TEST_F(SurfaceTest, SavingTellsWantOfMemoryAndLeavesNothing) {
  const test::TemporaryFolder folder;
  const std::string path = folder.File("x.png");
  ExpectToldAtEveryAllocation([&] {
    const HRESULT result = Quenzel7SurfaceSavePng(surface_, path.c_str());
    if (result != S_OK) {
      EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    }
    return result;
  });
}

/// Each function on a surface, with all other arguments as they should be.
std::vector<HRESULT> AllFunctions(Quenzel7Surface* surface) {
  LONG number = 0;
  ULONG pixels[6];
  SAFEARRAY* bytes = nullptr;
  return {Quenzel7SurfaceContext(surface, &number),          Quenzel7SurfaceSize(surface, &number, &number),
          Quenzel7SurfacePixels(surface, pixels, 6),         Quenzel7SurfacePng(surface, &bytes),
          Quenzel7SurfaceSavePng(surface, "/nowhere/x.png"), Quenzel7SurfaceDestroy(surface)};
}

TEST_F(SurfaceTest, NullPointersAreRefused) {
  EXPECT_EQ(AllFunctions(nullptr), std::vector<HRESULT>(6, E_POINTER));
  EXPECT_STREQ(Quenzel7LastError(), "a pointer is null");
  LONG number = 0;
  EXPECT_EQ(Quenzel7SurfaceCreate(1, 1, 0, nullptr), E_POINTER);
  EXPECT_EQ(Quenzel7SurfaceContext(surface_, nullptr), E_POINTER);
  EXPECT_EQ(Quenzel7SurfaceSize(surface_, nullptr, &number), E_POINTER);
  EXPECT_EQ(Quenzel7SurfaceSize(surface_, &number, nullptr), E_POINTER);
  EXPECT_EQ(Quenzel7SurfacePixels(surface_, nullptr, 6), E_POINTER);
  EXPECT_EQ(Quenzel7SurfacePng(surface_, nullptr), E_POINTER);
  EXPECT_EQ(Quenzel7SurfaceSavePng(surface_, nullptr), E_POINTER);
}

TEST_F(SurfaceTest, OtherThreadsAreRefused) {
  std::thread([this] {
    EXPECT_EQ(AllFunctions(surface_), std::vector<HRESULT>(6, RPC_E_WRONG_THREAD));
    EXPECT_STREQ(Quenzel7LastError(), "the surface belongs to another thread, the one that made it");
  }).join();
  EXPECT_EQ(Pixels()[0], kColor);
}

TEST_F(SurfaceTest, ADestroyedOneIsRefused) {
  EXPECT_EQ(Quenzel7SurfaceDestroy(surface_), S_OK);
  EXPECT_EQ(AllFunctions(surface_), std::vector<HRESULT>(6, E_INVALIDARG));
  EXPECT_STREQ(Quenzel7LastError(), "there is no such surface, or it was destroyed");
  surface_ = nullptr;
}

TEST_F(SurfaceTest, NoBytesAreGivenByAFailure) {
  SAFEARRAY other{};
  SAFEARRAY* bytes = &other;
  EXPECT_EQ(Quenzel7SurfacePng(reinterpret_cast<Quenzel7Surface*>(&other), &bytes), E_INVALIDARG);
  EXPECT_EQ(bytes, nullptr);
}

}  // namespace
}  // namespace quenzel7
