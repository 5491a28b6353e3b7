#include "platform/gdi/code_page.h"

#include <iconv.h>

#include <algorithm>
#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

namespace quenzel7::gdi {
namespace {

struct PageOfSet {
  std::uint8_t charSet;
  std::int32_t page;
};

/// The first one serves every character set that is not in the list.
constexpr std::array<PageOfSet, 11> kPages{{{0, 1252},
                                            {161, 1253},
                                            {162, 1254},
                                            {163, 1258},
                                            {177, 1255},
                                            {178, 1256},
                                            {186, 1257},
                                            {204, 1251},
                                            {222, 874},
                                            {238, 1250},
                                            {255, 437}}};

/// Below this one the bytes are the characters of the same numbers in all pages.
constexpr char32_t kFirstOfPage = 128;

struct ByteOfCharacter {
  char32_t character;
  std::uint8_t byte;
};

/// A page in both directions.
struct LoadedPage {
  CodePage characters;
  std::vector<ByteOfCharacter> bytes;  ///< from kFirstOfPage on, sorted by character
};

constexpr char32_t kUnknown = 0xFFFD;

/// Both orders of bytes are common, so the converter is asked for the one that does not depend on the
/// machine.
char32_t FromBigEndian(const std::array<unsigned char, 4>& bytes) {
  return char32_t{bytes[0]} << 24 | char32_t{bytes[1]} << 16 | char32_t{bytes[2]} << 8 | bytes[3];
}

char32_t Convert(iconv_t converter, unsigned byte) {
  char in = static_cast<char>(byte);
  std::array<unsigned char, 4> out{};
  char *from = &in, *to = reinterpret_cast<char*>(out.data());
  std::size_t left = 1, room = out.size();
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  const bool isKnown = iconv(converter, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
  // Letters that a mark could follow are held back until the end of the text is told.
  iconv(converter, nullptr, nullptr, &to, &room);
  return isKnown && room == 0 ? FromBigEndian(out) : kUnknown;
}

CodePage Characters(std::int32_t number) {
  CodePage page;
  const iconv_t converter = iconv_open("UTF-32BE", ("CP" + std::to_string(number)).c_str());
  const bool isThere = converter != reinterpret_cast<iconv_t>(-1);
  for (unsigned byte = 0; byte < page.size(); ++byte) {
    page[byte] = isThere ? Convert(converter, byte) : byte;
  }
  if (isThere) iconv_close(converter);
  return page;
}

bool IsLess(const ByteOfCharacter& entry, char32_t character) { return entry.character < character; }

LoadedPage Load(std::int32_t number) {
  LoadedPage page{Characters(number), {}};
  for (char32_t byte = kFirstOfPage; byte < page.characters.size(); ++byte) {
    const char32_t character = page.characters[byte];
    if (character != kUnknown) page.bytes.push_back({character, static_cast<std::uint8_t>(byte)});
  }
  std::sort(page.bytes.begin(), page.bytes.end(),
            [](const ByteOfCharacter& a, const ByteOfCharacter& b) { return IsLess(a, b.character); });
  return page;
}

const LoadedPage& PageOf(std::uint8_t charSet) {
  static std::array<LoadedPage, kPages.size()> pages;
  static std::array<std::once_flag, kPages.size()> loaded;
  std::size_t found = 0;
  for (std::size_t i = 1; i < kPages.size(); ++i) {
    if (kPages[i].charSet == charSet) found = i;
  }
  std::call_once(loaded[found], [&] { pages[found] = Load(kPages[found].page); });
  return pages[found];
}

}  // namespace

const CodePage& CodePageOf(std::uint8_t charSet) { return PageOf(charSet).characters; }

std::optional<std::uint8_t> CharSetOfCodePage(std::int32_t number) {
  for (const PageOfSet& entry : kPages) {
    if (entry.page == number) return entry.charSet;
  }
  return {};
}

std::optional<std::uint8_t> ByteOf(char32_t character, std::uint8_t charSet) {
  if (character < kFirstOfPage) return static_cast<std::uint8_t>(character);
  const auto& bytes = PageOf(charSet).bytes;
  const auto found = std::lower_bound(bytes.begin(), bytes.end(), character, IsLess);
  if (found == bytes.end() || found->character != character) return {};
  return found->byte;
}

}  // namespace quenzel7::gdi
