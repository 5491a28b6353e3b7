#pragma once

#include <stdexcept>
#include <string_view>

namespace quenzel7 {

/// The text that the element contract has on its member of that name, for classes that publish a member of
/// the same name and meaning on their own interface. Throws std::out_of_range for a name that is not there;
/// in a constant table it does not compile.
constexpr std::string_view ElementMemberText(std::string_view name) {
  constexpr struct {
    std::string_view name, text;
  } kTexts[] = {
#define READ(type, name, stub, doc) {#name, doc},
#define READ_WRITE READ
#define WRITE_READ READ
#define METHOD(result, name, parameters, arguments, stub, doc) {#name, doc},
#define QUERY METHOD
#include "framework/element_members.inc"
#undef READ
#undef READ_WRITE
#undef WRITE_READ
#undef METHOD
#undef QUERY
  };
  for (const auto& member : kTexts) {
    if (member.name == name) return member.text;
  }
  throw std::out_of_range("no such member of the element contract");
}

}  // namespace quenzel7
