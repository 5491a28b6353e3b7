#include "server/abi/string_functions.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <new>

namespace quenzel7::server {
namespace {

// Twice the size of the number, so that the characters lie as a 64-bit host expects its memory to lie.
constexpr std::size_t kBefore = 8;

/// A copy of the bytes, or so many zeros when there are none.
BSTR CopyOf(const void* bytes, std::size_t count) noexcept {
  const BSTR text = MakeBstr(count);
  if (text == nullptr) return nullptr;
  if (bytes != nullptr) {
    std::memcpy(text, bytes, count);
  } else {
    std::memset(text, 0, count);
  }
  return text;
}

}  // namespace

BSTR MakeBstr(std::size_t bytes) noexcept {
  if (bytes > std::numeric_limits<std::uint32_t>::max()) return nullptr;
  auto* block = static_cast<char*>(::operator new(kBefore + bytes + sizeof(OLECHAR), std::nothrow));
  if (block == nullptr) return nullptr;
  char* const text = block + kBefore;
  const auto length = static_cast<std::uint32_t>(bytes);
  std::memcpy(text - sizeof length, &length, sizeof length);
  // By bytes: behind an odd number of them no character can stand.
  std::memset(text + bytes, 0, sizeof(OLECHAR));
  return reinterpret_cast<BSTR>(text);
}

}  // namespace quenzel7::server

using quenzel7::server::CopyOf;

BSTR SysAllocString(const OLECHAR* text) {
  if (text == nullptr) return nullptr;
  std::size_t length = 0;
  while (text[length] != 0) ++length;
  return CopyOf(text, length * sizeof(OLECHAR));
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT characters) {
  return CopyOf(text, std::size_t{characters} * sizeof(OLECHAR));
}

BSTR SysAllocStringByteLen(const char* bytes, UINT count) { return CopyOf(bytes, count); }

void SysFreeString(BSTR text) {
  if (text != nullptr) ::operator delete(reinterpret_cast<char*>(text) - quenzel7::server::kBefore);
}

UINT SysStringLen(BSTR text) { return SysStringByteLen(text) / sizeof(OLECHAR); }

UINT SysStringByteLen(BSTR text) {
  if (text == nullptr) return 0;
  std::uint32_t length;
  std::memcpy(&length, reinterpret_cast<const char*>(text) - sizeof length, sizeof length);
  return length;
}
