#include "hosts/cli/page_properties.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "hosts/cli/element_picture.h"
#include "hosts/cli/property_values.h"
#include "hosts/cli/variable_settings.h"

namespace quenzel7::cli {
namespace {

using automation::Mark;
using automation::Member;

constexpr std::string_view kPosition[] = {"Xs", "Ys", "Dx", "Dy"};

/// What follows from a picture: its key in the project, its place there, and its pixels.
constexpr std::string_view kOfPicture[] = {"ImageCRC", "ImageIndexInVar", "Bits"};

/// What the owner of a picture says of it. It is told through ItfImage: not all owners have such a property
/// of their own, and others change the project's links when it is set.
constexpr std::string_view kTransparency = "TransparencyLevel";

template <std::size_t Count>
bool IsAmong(const std::string_view (&names)[Count], std::string_view name) {
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

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
  if (IsVariableClass(elementClass)) properties.push_back(elementClass.Default().Find(kTypeProperty));
  const automation::Interface* const images = PictureInterfaceOf(elementClass);
  for (const Member& member : elementClass.Default().Members()) {
    if (member.name == kTransparency) continue;
    if (IsPageProperty(member) && !IsOfPicture(elementClass, member) &&
        std::find(properties.begin(), properties.end(), &member) == properties.end()) {
      properties.push_back(&member);
    }
  }
  if (images) properties.push_back(images->Find(kTransparency));
  return properties;
}

bool IsOfPicture(const automation::ClassInfo& elementClass, const Member& property) {
  return PictureInterfaceOf(elementClass) && IsAmong(kOfPicture, property.name);
}

bool IsPositionProperty(std::string_view property) { return IsAmong(kPosition, property); }

}  // namespace quenzel7::cli
