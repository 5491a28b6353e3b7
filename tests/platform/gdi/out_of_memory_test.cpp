#include <gtest/gtest.h>

#include <fstream>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "platform/gdi/font_face.h"
#include "platform/gdi/selected.h"
#include "tests/platform/gdi/font_samples.h"
#include "tests/platform/gdi/picture.h"
#include "tests/support/failing_memory.h"

// What calls do where memory cannot be had. In a program of its own, since it is linked with an allocation in
// the place of that of the language.

namespace quenzel7::gdi {
namespace {

using test::allocationsLeft;
using test::Failing;

struct Call {
  const char* name;
  /// The handle that it makes, or 0.
  Handle (*make)(HDC dc);
};

Handle Nothing(BOOL) { return 0; }

constexpr POINT kPoints[] = {{1, 1}, {30, 3}, {8, 30}, {2, 5}};
constexpr LOGBRUSH kSolid{BS_SOLID, kRed, 0};

/// Calls that need memory, some of them many times.
constexpr Call kCalls[] = {
    {"context", [](HDC dc) -> Handle { return CreateCompatibleDC(dc); }},
    {"bitmap", [](HDC) -> Handle { return CreateBitmap(9, 9, 1, 32, nullptr); }},
    {"font",
     [](HDC) -> Handle {
       const LOGFONT look = Described("Unifont", 16);
       return CreateFontIndirectA(&look);
     }},
    {"region", [](HDC) -> Handle { return CreateEllipticRgn(0, 0, 300, 500); }},
    {"lines", [](HDC dc) -> Handle { return Nothing(Polyline(dc, kPoints, 4)); }},
    {"ellipse", [](HDC dc) -> Handle { return Nothing(Ellipse(dc, 2, 2, 37, 29)); }},
    {"path",
     [](HDC dc) -> Handle {
       BeginPath(dc);
       Ellipse(dc, 2, 2, 37, 29);
       AngleArc(dc, 9, 9, 20, 10, 300);
       Polyline(dc, kPoints, 4);
       EndPath(dc);
       return Nothing(StrokeAndFillPath(dc));
     }},
    {"stretching",
     [](HDC dc) -> Handle { return Nothing(StretchBlt(dc, 5, 5, 30, 20, dc, 0, 0, 13, 9, SRCINVERT)); }},
    {"text",
     [](HDC dc) -> Handle {
       RECT rect{0, 0, 40, 40};
       return Nothing(DrawTextA(dc, "&Some text\nof two &lines", -1, &rect, DT_WORDBREAK));
     }},
};

void DrawPage(HDC dc) {
  RECT rect{0, 0, 40, 40};
  Ellipse(dc, 3, 3, 39, 33);
  Polyline(dc, kPoints, 4);
  DrawTextA(dc, "a &wide text", -1, &rect, DT_SINGLELINE | DT_CENTER);
}

/// The page with lines of this width on a thread that has never been short of memory.
std::vector<COLORREF> UnharmedPage(std::uint32_t penWidth) {
  std::vector<COLORREF> colors;
  std::thread([&] {
    const Surface surface = White(40, 40);
    const SelectedPen pen(surface.Dc(), ExtCreatePen(PS_GEOMETRIC, penWidth, &kSolid, 0, nullptr));
    DrawPage(surface.Dc());
    colors = Colors(surface);
  }).join();
  return colors;
}

/// Makes a call while an allocation fails, and judges what is left against the page of an unharmed thread.
/// Gives whether so many were needed.
bool Survives(const Call& call, std::uint32_t penWidth, int failing, const std::vector<COLORREF>& expected) {
  bool hasFailed = true;
  Surface surface = White(40, 40);
  const SelectedPen pen(surface.Dc(), ExtCreatePen(PS_GEOMETRIC, penWidth, &kSolid, 0, nullptr));
  const std::size_t before = LiveObjects();
  Handle made = 0;
  try {
    const Failing fails(failing);
    made = call.make(surface.Dc());
    hasFailed = allocationsLeft < 0;
  } catch (const std::bad_alloc&) {
  }
  if (DeleteDC(made) == 0) DeleteObject(made);
  EXPECT_EQ(LiveObjects(), before);
  BeginPath(surface.Dc());
  EXPECT_EQ(EndPath(surface.Dc()), 1);
  EXPECT_EQ(StrokePath(surface.Dc()), 1);
  surface.Clear(kWhite);
  DrawPage(surface.Dc());
  EXPECT_EQ(Colors(surface), expected);
  return hasFailed;
}

TEST(OutOfMemory, HandlesStayInOrderAndTheNextCallIsAsGood) {
  for (const Call& call : kCalls) {
    for (const std::uint32_t penWidth : {1u, 7u}) {
      const std::vector<COLORREF> expected = UnharmedPage(penWidth);
      int failures = 0;
      // Each time on a thread of its own, which has kept no memory yet.
      for (bool hasFailed = true; hasFailed; ++failures) {
        std::thread([&] { hasFailed = Survives(call, penWidth, failures, expected); }).join();
        ASSERT_FALSE(HasFailure()) << call.name << ", allocation " << failures;
      }
      // Thin lines alone need none.
      if (penWidth > 1) {
        EXPECT_GT(failures, 1) << call.name;
      }
    }
  }
}

// On a thread of its own, so that its table is new: it has room for 64 objects at first.
TEST(OutOfMemory, ATableThatCannotGrowKeepsItsObjectsAndGrowsLater) {
  std::thread([] {
    std::vector<HBRUSH> brushes;
    for (int i = 0; i < 64; ++i) brushes.push_back(CreateSolidBrush(kRed));
    bool hasThrown = false;
    try {
      const Failing fails(0);
      CreateSolidBrush(kBlue);
    } catch (const std::bad_alloc&) {
      hasThrown = true;
    }
    EXPECT_TRUE(hasThrown);
    EXPECT_EQ(LiveObjects(), 64u);
    for (int i = 0; i < 10; ++i) brushes.push_back(CreateSolidBrush(kRed));
    EXPECT_EQ(LiveObjects(), 74u);
    for (const HBRUSH brush : brushes) {
      LOGBRUSH look{};
      EXPECT_EQ(GetObjectA(brush, sizeof look, &look), 12);
      EXPECT_EQ(look.lbColor, kRed);
      EXPECT_EQ(DeleteObject(brush), 1);
    }
    EXPECT_EQ(LiveObjects(), 0u);
  }).join();
}

/// How many pieces of a file the program has mapped into its memory.
int Mappings(const std::string& file) {
  std::ifstream maps("/proc/self/maps");
  int count = 0;
  for (std::string line; std::getline(maps, line);) count += line.find(file) != std::string::npos;
  return count;
}

TEST(OutOfMemory, AFaceThatCouldNotBeKeptIsClosedAndCanBeOpenedLater) {
  const FaceInfo& info = *FontCatalog::OfMachine().Ranked(Described("Unifont", 16)).front();
  const int before = Mappings(info.file);
  int failures = 0;
  for (bool hasFailed = true; hasFailed; ++failures) {
    FaceLibrary library;
    hasFailed = false;
    try {
      const Failing fails(failures);
      library.Open(info);
    } catch (const std::bad_alloc&) {
      hasFailed = true;
    }
    EXPECT_EQ(Mappings(info.file), before + (hasFailed ? 0 : 1)) << failures;
    const FontFace* face = library.Open(info);
    ASSERT_NE(face, nullptr) << failures;
    EXPECT_EQ(face->InUnits().unitsPerEm, 64) << failures;
    EXPECT_EQ(Mappings(info.file), before + 1) << failures;
  }
  EXPECT_GE(failures, 3);
}

TEST(OutOfMemory, ABitmapFailsByNoHandle) {
  const std::size_t before = LiveObjects();
  int failures = 0;
  for (HBITMAP bitmap = 0; bitmap == 0; ++failures) {
    {
      const Failing failing(failures);
      bitmap = CreateBitmap(9, 9, 1, 32, nullptr);
    }
    EXPECT_EQ(LiveObjects(), before + (bitmap != 0 ? 1 : 0));
    DeleteObject(bitmap);
  }
  EXPECT_GE(failures, 3);
}

}  // namespace
}  // namespace quenzel7::gdi
