#include "platform/corvane1/ansi_code_page.h"

#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/corvane1/utf8.h"
#include "platform/gdi/code_page.h"

namespace quenzel7::corvane1 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

std::uint8_t RequiredCharSet(Long number) {
  if (const auto charSet = gdi::CharSetOfCodePage(number)) return *charSet;
  throw AutomationError(ErrorNumber::InvalidProcedureCall, "code page " + std::to_string(number) +
                                                               ": one of 437, 874, 1250 to 1258 is expected");
}

}  // namespace

AnsiCodePage::AnsiCodePage(Long number) : number_(number), charSet_(RequiredCharSet(number)) {}

std::optional<std::uint8_t> AnsiCodePage::CodeOf(char32_t character) const {
  return gdi::ByteOf(character, charSet_);
}

char AnsiCodePage::Shown(char32_t character) const {
  const auto code = CodeOf(character);
  return code ? static_cast<char>(*code) : kSubstitute;
}

std::string AnsiCodePage::Encoded(std::string_view text) const {
  std::string encoded;
  encoded.reserve(text.size());
  while (!text.empty()) encoded += Shown(TakeCharacter(text));
  return encoded;
}

std::string AnsiCodePage::Encoded(std::u32string_view text) const {
  std::string encoded;
  encoded.reserve(text.size());
  for (const char32_t character : text) encoded += Shown(character);
  return encoded;
}

AnsiCodePage AnsiCodePageOf(Settings& settings) {
  static const std::string fallback = std::to_string(AnsiCodePage::kDefault);
  const std::string text = settings.GetSetting(kTextSection, kCodePageKey, fallback);
  try {
    return AnsiCodePage(automation::LongFromText(text));
  } catch (const AutomationError& error) {
    throw error.In("setting " + std::to_string(kTextSection) + "/" + std::to_string(kCodePageKey));
  }
}

}  // namespace quenzel7::corvane1
