#include "platform/gdi/code_page.h"

#include <iconv.h>

#include <cstddef>
#include <mutex>
#include <string>

namespace quenzel7::gdi {
namespace {

struct PageOfSet {
  std::uint8_t charSet;
  const char* page;
};

/// The first one serves every character set that is not in the list.
constexpr std::array<PageOfSet, 11> kPages{{{0, "CP1252"},
                                            {161, "CP1253"},
                                            {162, "CP1254"},
                                            {163, "CP1258"},
                                            {177, "CP1255"},
                                            {178, "CP1256"},
                                            {186, "CP1257"},
                                            {204, "CP1251"},
                                            {222, "CP874"},
                                            {238, "CP1250"},
                                            {255, "CP437"}}};

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

CodePage Load(const char* name) {
  CodePage page;
  const iconv_t converter = iconv_open("UTF-32BE", name);
  const bool isThere = converter != reinterpret_cast<iconv_t>(-1);
  for (unsigned byte = 0; byte < page.size(); ++byte) {
    page[byte] = isThere ? Convert(converter, byte) : byte;
  }
  if (isThere) iconv_close(converter);
  return page;
}

}  // namespace

const CodePage& CodePageOf(std::uint8_t charSet) {
  static std::array<CodePage, kPages.size()> pages;
  static std::array<std::once_flag, kPages.size()> loaded;
  std::size_t found = 0;
  for (std::size_t i = 1; i < kPages.size(); ++i) {
    if (kPages[i].charSet == charSet) found = i;
  }
  std::call_once(loaded[found], [&] { pages[found] = Load(kPages[found].page); });
  return pages[found];
}

}  // namespace quenzel7::gdi
