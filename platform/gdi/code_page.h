#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace quenzel7::gdi {

/// The code points of the 256 bytes of a code page; U+FFFD for bytes that the page leaves open.
using CodePage = std::array<char32_t, 256>;

/// The code page in which the texts of a character set (`LOGFONT::lfCharSet`) are written: 1253 for Greek,
/// 1254 Turkish, 1258 Vietnamese, 1255 Hebrew, 1256 Arabic, 1257 Baltic, 1251 Russian, 874 Thai, 1250 Eastern
/// European, 437 for OEM, 1252 for all others. Each page is worked out once for the whole program.
const CodePage& CodePageOf(std::uint8_t charSet);

/// The character set whose texts are written in the code page of that number; none for a number that is not
/// in the list above.
std::optional<std::uint8_t> CharSetOfCodePage(std::int32_t number);

/// The byte that stands for a character in the texts of a character set; none if its code page does not have
/// the character.
std::optional<std::uint8_t> ByteOf(char32_t character, std::uint8_t charSet);

}  // namespace quenzel7::gdi
