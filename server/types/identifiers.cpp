#include "server/types/identifiers.h"

#include <uuid/uuid.h>

#include <algorithm>
#include <array>

#include "platform/automation/class_info.h"

namespace quenzel7::server {
namespace {

constexpr std::string_view kProgrammaticPrefix = "Quenzel7.";

/// {5C7B1E0A-7A41-4E0F-9D52-3F7C1B6E8A17}
constexpr uuid_t kNameSpace = {0x5C, 0x7B, 0x1E, 0x0A, 0x7A, 0x41, 0x4E, 0x0F,
                               0x9D, 0x52, 0x3F, 0x7C, 0x1B, 0x6E, 0x8A, 0x17};

/// The number that its bytes give, those of each field with the highest first.
GUID FromBytes(const uuid_t bytes) {
  const auto field = [bytes](int first, int count) {
    std::uint32_t number = 0;
    for (int place = first; place < first + count; ++place) number = number << 8 | bytes[place];
    return number;
  };
  GUID id{field(0, 4), static_cast<std::uint16_t>(field(4, 2)), static_cast<std::uint16_t>(field(6, 2)), {}};
  std::copy_n(bytes + 8, 8, id.Data4);
  return id;
}

void ToBytes(const GUID& id, uuid_t bytes) {
  const auto put = [bytes](int first, int count, std::uint32_t number) {
    for (int place = first + count - 1; place >= first; --place, number >>= 8) {
      bytes[place] = static_cast<unsigned char>(number);
    }
  };
  put(0, 4, id.Data1);
  put(4, 2, id.Data2);
  put(6, 2, id.Data3);
  std::copy_n(id.Data4, 8, bytes + 8);
}

GUID NumberOf(const std::string& name) {
  uuid_t bytes;
  uuid_generate_sha1(bytes, kNameSpace, name.data(), name.size());
  return FromBytes(bytes);
}

}  // namespace

std::string ProgrammaticName(std::string_view className) {
  return std::string(kProgrammaticPrefix) + std::string(className);
}

std::string_view ClassOfProgrammaticName(std::string_view name) {
  const std::string_view prefix = name.substr(0, kProgrammaticPrefix.size());
  return automation::EqualFolded(prefix, kProgrammaticPrefix) ? name.substr(prefix.size()) : "";
}

GUID ClassId(std::string_view className) { return NumberOf("class " + std::string(className)); }

GUID InterfaceId(std::string_view interfaceName) {
  return NumberOf("interface " + std::string(interfaceName));
}

std::string GuidText(const GUID& id) {
  uuid_t bytes;
  ToBytes(id, bytes);
  std::array<char, UUID_STR_LEN> text;
  uuid_unparse_upper(bytes, text.data());
  return "{" + std::string(text.data()) + "}";
}

bool IsSameGuid(const GUID& a, const GUID& b) {
  return a.Data1 == b.Data1 && a.Data2 == b.Data2 && a.Data3 == b.Data3 &&
         std::equal(std::begin(a.Data4), std::end(a.Data4), std::begin(b.Data4));
}

}  // namespace quenzel7::server
