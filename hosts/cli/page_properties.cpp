#include "hosts/cli/page_properties.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "hosts/cli/property_values.h"

namespace quenzel7::cli {
namespace {

using automation::Mark;
using automation::Member;

constexpr std::string_view kPosition[] = {"Xs", "Ys", "Dx", "Dy"};

bool IsPageProperty(const Member& member) {
  constexpr Mark kNotOfThePage[] = {Mark::Identity, Mark::NotCarried, Mark::Transient};
  return member.get && member.put && IsPageFileType(member.type) &&
         std::find(std::begin(kNotOfThePage), std::end(kNotOfThePage), member.mark) ==
             std::end(kNotOfThePage);
}

}  // namespace

std::vector<const Member*> PageProperties(const automation::ClassInfo& elementClass) {
  std::vector<const Member*> properties;
  for (const std::string_view name : kPosition) {
    const Member* member = elementClass.Default().Find(name);
    if (member && IsPageProperty(*member)) properties.push_back(member);
  }
  for (const Member& member : elementClass.Default().Members()) {
    if (IsPageProperty(member) &&
        std::find(properties.begin(), properties.end(), &member) == properties.end()) {
      properties.push_back(&member);
    }
  }
  return properties;
}

bool IsPositionProperty(const Member& property) {
  return std::find(std::begin(kPosition), std::end(kPosition), property.name) != std::end(kPosition);
}

}  // namespace quenzel7::cli
