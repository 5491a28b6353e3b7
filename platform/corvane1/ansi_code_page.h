#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/types.h"
#include "platform/corvane1/settings.h"

namespace quenzel7::corvane1 {

/// The code page in which panels show texts: a character has a code from 0 to 255 in it, or it cannot be
/// shown.
class AnsiCodePage {
 public:
  /// Western European.
  static constexpr Long kDefault = 1252;
  /// What is shown in the place of a character without a code.
  static constexpr char kSubstitute = '?';

  /// 1252, 1250 to 1258, 874 (Thai) or 437 (OEM); error 5 for any other number.
  explicit AnsiCodePage(Long number = kDefault);

  Long Number() const { return number_; }
  /// The character set of fonts whose texts are in this page, as `LOGFONT::lfCharSet` takes it.
  std::uint8_t CharSet() const { return charSet_; }
  /// The code of a character; none for one that the page does not have, U+FFFD among them.
  std::optional<std::uint8_t> CodeOf(char32_t character) const;
  /// A text in UTF-8 as a text of this page, one byte a character. `kSubstitute` stands for what has no code,
  /// and for bytes that are no UTF-8 as `TakeCharacter` counts them.
  std::string Encoded(std::string_view text) const;
  /// The same for characters.
  std::string Encoded(std::u32string_view text) const;

 private:
  char Shown(char32_t character) const;

  Long number_;
  std::uint8_t charSet_;
};

/// Where the number of the code page is set.
inline constexpr Long kTextSection = 7000, kCodePageKey = 1;

/// The code page that the settings tell, 1252 when they tell none. Errors that name the setting: 13 when it
/// is no number, 6 when it does not fit 32 bits, 5 when there is no code page of that number; and those of
/// the settings.
AnsiCodePage AnsiCodePageOf(Settings& settings);

/// Tells the code page at each use.
using AnsiCodePageSource = std::function<AnsiCodePage()>;

}  // namespace quenzel7::corvane1
