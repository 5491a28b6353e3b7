#include "platform/gdi/font_cache.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/platform/gdi/font_samples.h"

namespace quenzel7::gdi {
namespace {

TEST(FontCache, GivesTheSameFontForTheSameDescription) {
  FontCache cache(FontCatalog::OfMachine());
  const auto font = cache.Find(Described("Unifont", 16));
  EXPECT_EQ(cache.Find(Described("Unifont", 16)), font);
  EXPECT_NE(cache.Find(Described("Unifont", 17)), font);
  EXPECT_EQ(cache.Find(Described("Unifont", 16)), font);
}

TEST(FontCache, TellsFontsApartByAllThatShows) {
  FontCache cache(FontCatalog::OfMachine());
  const LOGFONT plain = Described("Unifont", 16);
  const auto font = cache.Find(plain);
  const auto differs = [&](auto change) {
    LOGFONT changed = plain;
    change(changed);
    return cache.Find(changed) != font;
  };
  EXPECT_TRUE(differs([](LOGFONT& f) { f.lfWidth = 9; }));
  EXPECT_TRUE(differs([](LOGFONT& f) { f.lfWeight = 700; }));
  EXPECT_TRUE(differs([](LOGFONT& f) { f.lfItalic = 1; }));
  EXPECT_TRUE(differs([](LOGFONT& f) { f.lfCharSet = 161; }));
  EXPECT_TRUE(differs([](LOGFONT& f) { f.lfPitchAndFamily = FIXED_PITCH; }));
  EXPECT_TRUE(differs([](LOGFONT& f) { f.lfFaceName[0] = 'u'; }));
  EXPECT_FALSE(differs([](LOGFONT& f) { f.lfEscapement = 900; }));
  EXPECT_FALSE(differs([](LOGFONT& f) { f.lfOrientation = 900; }));
  EXPECT_FALSE(differs([](LOGFONT& f) { f.lfUnderline = 1; }));
  EXPECT_FALSE(differs([](LOGFONT& f) { f.lfStrikeOut = 1; }));
  EXPECT_FALSE(differs([](LOGFONT& f) { f.lfOutPrecision = 1; }));
  EXPECT_FALSE(differs([](LOGFONT& f) { f.lfClipPrecision = 1; }));
  EXPECT_FALSE(differs([](LOGFONT& f) { f.lfQuality = 1; }));
  EXPECT_FALSE(differs([](LOGFONT& f) { f.lfFaceName[8] = 'x'; }));
}

TEST(FontCache, ADescriptionOfNothingIsOneAsWell) {
  FontCache cache(FontCatalog::OfMachine());
  const auto plain = cache.Find(LOGFONT{});
  const auto font = cache.Find(Described("Unifont", 32));
  EXPECT_NE(font, plain);
  EXPECT_EQ(cache.Find(LOGFONT{}), plain);
  EXPECT_EQ(cache.Find(LOGFONT{}), plain);
  EXPECT_EQ(plain->Height(), 16);
}

TEST(FontCache, AnyItalicIsItalic) {
  FontCache cache(FontCatalog::OfMachine());
  LOGFONT a = Described("Unifont", 16), b = a;
  a.lfItalic = 1;
  b.lfItalic = 255;
  EXPECT_EQ(cache.Find(a), cache.Find(b));
}

TEST(FontCache, LetsGoOfTheOneNotUsedForLongest) {
  FontCache cache(FontCatalog::OfMachine());
  const int capacity = static_cast<int>(FontCache::kCapacity);
  std::weak_ptr<Font> first = cache.Find(Described("Unifont", 1)),
                      second = cache.Find(Described("Unifont", 2));
  for (int height = 3; height <= capacity; ++height) cache.Find(Described("Unifont", height));
  EXPECT_FALSE(first.expired());
  cache.Find(Described("Unifont", 1));
  cache.Find(Described("Unifont", capacity + 1));
  EXPECT_FALSE(first.expired());
  EXPECT_TRUE(second.expired());
}

TEST(FontCache, AFontThatIsHeldOutlivesIt) {
  std::shared_ptr<Font> font;
  {
    FontCache cache(FontCatalog::OfMachine());
    font = cache.Find(Described("Unifont", 16));
  }
  EXPECT_EQ(RowsOf(font->GlyphOf(U'A')), kUnifontA);
}

TEST(FontFor, IsOfTheCallingThread) {
  const LOGFONT description = Described("Unifont", 16);
  const auto mine = FontFor(description);
  EXPECT_EQ(FontFor(description), mine);
  std::shared_ptr<Font> other;
  std::thread([&] {
    other = FontFor(description);
    EXPECT_EQ(RowsOf(other->GlyphOf(U'A')), kUnifontA);
  }).join();
  EXPECT_NE(other, mine);
}

}  // namespace
}  // namespace quenzel7::gdi
