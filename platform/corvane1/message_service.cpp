#include "platform/corvane1/message_service.h"

#include <algorithm>
#include <string_view>

#include "platform/automation/convert.h"

namespace quenzel7::corvane1 {
namespace {

using automation::Variant;

/// What stands in a text for the insert.
constexpr std::string_view kInsert = "%1";

struct Message {
  Long number;
  std::string_view text;
};

constexpr Message kMessages[] = {
    {6, "A group cannot hold an element that reacts to a touch."},
    {377, "The picture file %1 was not found. Choose another one?"},
    {378, "The picture file %1 cannot be read. Choose another one?"},
    {383, "A picture could not be fitted to its new size, since the file that it came from was not found."},
    {536, "The project has no number left for another element."},
};

std::string InsertOf(const Variant& argument) {
  if (argument.IsNull()) return {};
  if (argument.IsObject() || argument.IsArray()) return automation::KindName(argument.Kind());
  return automation::To<std::string>(argument);
}

}  // namespace

std::string MessageText(Long number, const Variant& argument) {
  const std::string insert = InsertOf(argument);
  const auto* found = std::find_if(std::begin(kMessages), std::end(kMessages),
                                   [number](const Message& message) { return message.number == number; });
  if (found == std::end(kMessages)) {
    return "message " + std::to_string(number) + (insert.empty() ? "" : ": " + insert);
  }
  std::string text(found->text);
  if (const auto at = text.find(kInsert); at != std::string::npos) text.replace(at, kInsert.size(), insert);
  return text;
}

Long CollectedMessages::ShowMessage(Long number, Variant& argument) {
  const std::string text = MessageText(number, argument);
  return Ask(text, {number, text});
}

}  // namespace quenzel7::corvane1
