#include "hosts/cli/base64.h"

#include <algorithm>
#include <cstdint>

namespace quenzel7::cli {
namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kBytesOfGroup = 3, kDigitsOfGroup = 4;
constexpr unsigned kBitsOfByte = 8, kBitsOfDigit = 6;

}  // namespace

std::string Base64Of(const std::vector<Byte>& bytes) {
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += kBytesOfGroup) {
    std::uint32_t group = 0;
    for (std::size_t place = at; place < at + kBytesOfGroup; ++place) {
      group = group << kBitsOfByte | (place < bytes.size() ? bytes[place] : 0u);
    }
    const std::size_t present = std::min(bytes.size() - at, kBytesOfGroup);
    for (std::size_t digit = 0; digit < kDigitsOfGroup; ++digit) {
      const auto shift = static_cast<unsigned>(kDigitsOfGroup - 1 - digit) * kBitsOfDigit;
      text += digit <= present ? kDigits[group >> shift & (kDigits.size() - 1)] : '=';
    }
  }
  return text;
}

std::optional<std::vector<Byte>> BytesOfBase64(std::string_view text) {
  std::vector<Byte> bytes;
  std::uint32_t group = 0;
  unsigned bits = 0;
  for (const char letter : text.substr(0, text.find('='))) {
    const auto digit = kDigits.find(letter);
    if (digit == std::string_view::npos) return {};
    group = group << kBitsOfDigit | static_cast<std::uint32_t>(digit);
    bits += kBitsOfDigit;
    if (bits < kBitsOfByte) continue;
    bits -= kBitsOfByte;
    bytes.push_back(static_cast<Byte>(group >> bits & 0xFF));
  }
  // Left-over bits and padding that are not as they should be are no text of these bytes.
  if (Base64Of(bytes) != text) return {};
  return bytes;
}

}  // namespace quenzel7::cli
