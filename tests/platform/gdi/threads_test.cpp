#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <optional>
#include <random>
#include <thread>
#include <vector>

#include "platform/gdi/recorder.h"
#include "platform/gdi/selected.h"
#include "tests/platform/gdi/picture.h"

// Every thread has its handles, its scratch memory and its recorder to itself. Run under the thread
// sanitizer, these tests also show that nothing is shared unseen.

namespace quenzel7::gdi {
namespace {

using Pixels = std::vector<COLORREF>;

/// Draws figures, lines, paths, regions, blits and texts of all kinds, the same for the same seed.
class Scribbler {
 public:
  explicit Scribbler(std::uint32_t seed) : random_(seed) {}

  Pixels Draw(int shapes) {
    for (int i = 0; i < shapes; ++i) {
      const HDC dc = Any(4) == 0 ? mono_.Dc() : color_.Dc();
      SetBkColor(dc, Color());
      SetTextColor(dc, Color());
      const SelectedPen pen(dc, Pen());
      const SelectedBrush brush(dc, Brush());
      SetBkMode(dc, Any(2) == 0 ? TRANSPARENT : OPAQUE);
      Shape(dc);
    }
    Pixels all = Colors(color_);
    const Pixels mono = Colors(mono_);
    all.insert(all.end(), mono.begin(), mono.end());
    all.push_back(hits_);
    return all;
  }

 private:
  int Any(int count) { return static_cast<int>(random_() % static_cast<std::uint32_t>(count)); }
  int Place() { return Any(120) - 20; }
  COLORREF Color() { return random_() & 0xFFFFFF; }

  HPEN Pen() {
    const auto style = static_cast<std::uint32_t>(Any(7));
    const int width = Any(3) == 0 ? Any(12) : Any(2);
    const COLORREF color = Color();
    if (Any(3) != 0) return MakePen(style, width, color);
    const LOGBRUSH brush{BS_SOLID, color, 0};
    const std::uint32_t ends = static_cast<std::uint32_t>(Any(3)) << 8 | static_cast<std::uint32_t>(Any(3))
                                                                             << 12;
    return ExtCreatePen(PS_GEOMETRIC | ends, static_cast<std::uint32_t>(width), &brush, 0, nullptr);
  }

  HBRUSH Brush() {
    const COLORREF color = Color();
    if (Any(5) == 0) {
      const LOGBRUSH null{BS_NULL, 0, 0};
      return CreateBrushIndirect(&null);
    }
    return Any(2) == 0 ? CreateSolidBrush(color) : CreateHatchBrush(Any(6), color);
  }

  HFONT Font() {
    constexpr std::array<const char*, 3> kFaces{"DejaVu Serif", "Unifont", "nobody has this"};
    LOGFONT font{};
    // A few more than a thread keeps.
    font.lfHeight = std::array{16, -11, 23}[static_cast<std::size_t>(Any(3))];
    font.lfWeight = Any(2) == 0 ? 400 : 700;
    font.lfItalic = font.lfWeight == 700;
    font.lfUnderline = static_cast<std::uint8_t>(Any(2));
    font.lfCharSet = Any(2) == 0 ? std::uint8_t{0} : std::uint8_t{161};
    std::strcpy(font.lfFaceName, kFaces[static_cast<std::size_t>(Any(3))]);
    return CreateFontIndirectA(&font);
  }

  void Shape(HDC dc) {
    const int kind = Any(15), a = Place(), b = Place(), c = Place(), d = Place(), e = Any(30), f = Any(30);
    const RECT rect{a, b, c, d};
    const HDC source = Any(2) == 0 ? mono_.Dc() : color_.Dc();
    switch (kind) {
      case 0:
        Rectangle(dc, a, b, c, d);
        break;
      case 1:
        Ellipse(dc, a, b, c, d);
        break;
      case 2:
        RoundRect(dc, a, b, c, d, e, f);
        break;
      case 3:
        MoveToEx(dc, a, b, nullptr);
        LineTo(dc, c, d);
        break;
      case 4:
        Polyline(dc, std::array<POINT, 3>{{{a, b}, {c, d}, {e, f}}}.data(), 3);
        break;
      case 5:
        AngleArc(dc, a, b, static_cast<std::uint32_t>(e), static_cast<float>(c), static_cast<float>(3 * d));
        break;
      case 6:
        BeginPath(dc);
        Ellipse(dc, a, b, c, d);
        RoundRect(dc, b, a, d, c, e, f);
        LineTo(dc, e, f);
        EndPath(dc);
        e % 2 == 0 ? StrokePath(dc) : StrokeAndFillPath(dc);
        break;
      case 7: {
        const HRGN region = e % 2 == 0 ? CreateEllipticRgn(a, b, c, d) : CreateRoundRectRgn(a, b, c, d, e, f);
        hits_ =
            hits_ * 31 + static_cast<COLORREF>(2 * PtInRegion(region, e, f) + RectInRegion(region, &rect));
        DeleteObject(region);
        break;
      }
      case 8:
        BitBlt(dc, a, b, c, d, source, e, f, static_cast<std::uint32_t>(Any(256)) << 16);
        break;
      case 9:
        SetStretchBltMode(dc, 1 + Any(3));
        StretchBlt(dc, a, b, c, d, source, e, f, d, c, SRCINVERT);
        break;
      case 10:
        AlphaBlend(dc, a, b, e, f, source, 3, 4, f, e, {AC_SRC_OVER, 0, static_cast<std::uint8_t>(2 * a), 0});
        break;
      case 11:
        FillRect(dc, &rect, GetCurrentObject(dc, OBJ_BRUSH));
        PatBlt(dc, b, a, e, f, PATINVERT);
        break;
      case 12:
        DrawFocusRect(dc, &rect);
        break;
      case 13: {
        const SelectedFont font(dc, Font());
        TextOutA(dc, a, b, kText + e, f);
        break;
      }
      default: {
        const SelectedFont font(dc, Font());
        RECT box = rect;
        const auto format = static_cast<std::uint32_t>(Any(0x2000)) & ~std::uint32_t{DT_TABSTOP};
        hits_ = hits_ * 31 + static_cast<COLORREF>(DrawTextA(dc, kText + e, -1, &box, format) + box.right);
        break;
      }
    }
  }

  static constexpr char kText[] =
      "The quick &brown fox\njumps over\tthe lazy \xE1\xE2\xE7 dog's back, && again";

  std::mt19937 random_;
  Surface color_{97, 83}, mono_{90, 77, 1};
  COLORREF hits_ = 0;
};

TEST(Threads, DrawTheSameTogetherAsOneAfterTheOther) {
  constexpr int kShapes = 10000;
  constexpr std::array<std::uint32_t, 2> kSeeds{17, 4711};
  std::array<Pixels, 2> alone, together;
  for (std::size_t i = 0; i < 2; ++i) alone[i] = Scribbler(kSeeds[i]).Draw(kShapes);
  EXPECT_NE(alone[0], alone[1]);

  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < 2; ++i) {
    threads.emplace_back([&, i] { together[i] = Scribbler(kSeeds[i]).Draw(kShapes); });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_TRUE(together[0] == alone[0]);
  EXPECT_TRUE(together[1] == alone[1]);
}

TEST(Threads, DoNotKnowEachOthersHandles) {
  const Surface surface = White(4, 4);
  const HPEN pen = MakePen(PS_SOLID, 1, kRed);
  const HRGN region = CreateEllipticRgn(0, 0, 5, 5);
  const std::size_t here = LiveObjects();
  std::thread([&] {
    EXPECT_EQ(LiveObjects(), 0u);
    EXPECT_EQ(GetBkColor(surface.Dc()), CLR_INVALID);
    EXPECT_EQ(PatBlt(surface.Dc(), 0, 0, 4, 4, BLACKNESS), 0);
    EXPECT_EQ(GetObjectA(pen, 0, nullptr), 0);
    EXPECT_EQ(GetBitmapBits(surface.BitmapHandle(), 0, nullptr), 0);
    EXPECT_EQ(PtInRegion(region, 2, 2), 0);
    EXPECT_EQ(DeleteDC(surface.Dc()), 0);
    for (const Handle object : {pen, region, surface.BitmapHandle()}) EXPECT_EQ(DeleteObject(object), 0);
    const HDC own = CreateCompatibleDC(0);
    EXPECT_EQ(SelectObject(own, pen), 0);
    EXPECT_EQ(LiveObjects(), 1u);
    DeleteDC(own);
  }).join();
  EXPECT_EQ(LiveObjects(), here);
  EXPECT_EQ(surface.At(1, 1), kWhite);
  EXPECT_EQ(DeleteObject(pen), 1);
  EXPECT_EQ(DeleteObject(region), 1);
}

TEST(Threads, ShareTheStockObjects) {
  std::array<HGDIOBJ, 18> there{};
  std::thread([&] {
    for (int i = 0; i < 18; ++i) there[static_cast<std::size_t>(i)] = GetStockObject(i);
  }).join();
  for (int i = 0; i < 18; ++i) EXPECT_EQ(there[static_cast<std::size_t>(i)], GetStockObject(i)) << i;
}

TEST(Threads, AreNotHeardByEachOthersRecorders) {
  const Recorder recorder;
  std::thread([] { DeleteObject(CreateSolidBrush(0)); }).join();
  EXPECT_TRUE(recorder.Calls().empty());
}

// The rows of the last large curve are kept for the next one until the thread ends, and its objects end after
// them.
TEST(Threads, MayEndWithObjectsAlive) {
  for (int i = 0; i < 3; ++i) {
    std::thread([] {
      const HDC dc = CreateCompatibleDC(0);
      Ellipse(dc, 0, 0, 10, 10);
      for (const int size : {20, 3000, 40}) EXPECT_NE(CreateEllipticRgn(0, 0, size, size), 0);
      SelectObject(dc, CreateSolidBrush(kRed));
      SelectObject(dc, CreateBitmap(9, 9, 1, 32, nullptr));
      BeginPath(dc);
      Ellipse(dc, 0, 0, 500, 500);
      EXPECT_EQ(LiveObjects(), 6u);
    }).join();
  }
}

/// A surface that lives longer than the handles of its thread, as one in a static variable does, and what
/// happens in between.
struct Late {
  ~Late() { inBetween(); }
  std::function<void()> inBetween;
  std::optional<Surface> surface;
};

TEST(Threads, CallsFailOnceTheHandlesHaveEnded) {
  std::vector<std::int64_t> before, after;
  std::thread([&] {
    // Made before the first handle, and therefore ended after all of them.
    thread_local Late late;
    late.surface.emplace(3, 2);
    late.surface->Clear(kRed);
    const HDC dc = late.surface->Dc();
    const HPEN pen = MakePen(PS_SOLID, 1, kBlue);
    const HRGN region = CreateEllipticRgn(0, 0, 9, 9);
    DeleteObject(CreateEllipticRgn(0, 0, 99, 99));
    before = {late.surface->At(1, 1), static_cast<std::int64_t>(LiveObjects())};
    late.inBetween = [&after, &surface = *late.surface, dc, pen, region] {
      const LOGFONT font{};
      RECT rect{0, 0, 2, 2};
      after = {surface.At(1, 1),
               GetPixel(dc, 1, 1),
               static_cast<std::int64_t>(surface.Pixels().size()),
               static_cast<std::int64_t>(LiveObjects()),
               CreateCompatibleDC(0),
               CreateCompatibleDC(dc),
               CreateSolidBrush(0),
               CreateBitmap(2, 2, 1, 32, nullptr),
               CreateEllipticRgn(0, 0, 9, 9),
               CreateEllipticRgn(0, 0, 200, 200),
               CreateFontIndirectA(&font),
               SelectObject(dc, GetStockObject(BLACK_PEN)),
               Ellipse(dc, 0, 0, 9, 9),
               PtInRegion(region, 4, 4),
               TextOutA(dc, 0, 0, "a", 1),
               DrawTextA(dc, "a", 1, &rect, 0),
               GetObjectA(pen, 0, nullptr),
               DeleteObject(pen),
               DeleteObject(region),
               DeleteDC(dc)};
    };
  }).join();
  EXPECT_EQ(before, (std::vector<std::int64_t>{kRed, 4}));
  std::vector<std::int64_t> failures(20, 0);
  failures[0] = failures[1] = CLR_INVALID;
  EXPECT_EQ(after, failures);
}

}  // namespace
}  // namespace quenzel7::gdi
