#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/cli/element_classes.h"
#include "hosts/cli/element_picture.h"
#include "platform/automation/class_info.h"
#include "platform/automation/variant.h"

namespace quenzel7::cli {

/// The panel that a page is for: its type number and its size in pixels.
struct Panel {
  Long type = 0;
  Long width = 320;
  Long height = 240;

  friend bool operator==(const Panel&, const Panel&) = default;
};

/// Width and height of a panel are 1 to this many pixels.
inline constexpr Long kLargestPanel = 4096;

/// A page without its elements.
struct PageInfo {
  /// The number of the page in its project, from 0.
  Long number = 1;
  std::string name;
  Panel panel;
};

/// One property and the value that it is given.
struct PropertyValue {
  const automation::Member* property;
  automation::Variant value;
};

/// One element of a page file: its class and the properties that it gives, in the order of PageProperties,
/// the members of a group, the lowest first, the picture of an element that holds one, and the settings of a
/// variable.
struct PageElement {
  const automation::ClassInfo* elementClass;
  std::vector<PropertyValue> values;
  std::vector<PageElement> elements = {};
  std::optional<FiledPicture> picture = {};
  /// Of a variable: what the page file says under kSettingsKeys, as it stands there.
  Json settings = Json::object();
};

/// What a page file says. The first element is the lowest one.
struct PageFile {
  PageInfo info;
  std::vector<PageElement> elements;
  /// The folder from which the files of pictures are seen; the current one while empty.
  std::string folder = {};
};

/// The folder in which the file of that path lies.
std::string FolderOf(const std::string& path);

/// The number of all elements, the members of groups among them.
std::size_t CountElements(const std::vector<PageElement>& elements);

/// How messages name an element: "PLACE, element 7 (clsRectangle)", counted from 1. The place of a group's
/// member begins with that of the group.
std::string ElementPlace(const std::string& place, std::size_t index, std::string_view className);

/// Reads a page file. `place` says in messages what is read: "page file panel.json". Throws UserError naming
/// the place, the element and the property for malformed JSON, a member that is missing, unknown or there
/// twice, an unknown class, a property that does not exist or cannot be set, a value that does not fit its
/// type, members of what is no group, a touchable member of a group, and groups that nest too deep.
PageFile ReadPageFile(std::string_view text, const std::string& place,
                      const ElementClasses& classes = ElementClasses::All());

/// Makes the element: a fresh one of the class with the properties set, through call by name, and a group
/// with its members, the variables among them on top. The files of pictures are seen from `folder`. Raises
/// what the class and the image library raise, with the property's name.
ElementRef MakeElement(const PageElement& element, const std::string& folder = {});

/// The page with the properties that differ from those of a fresh element, and position and size always, and
/// with the pictures of saved elements.
std::string CanonicalPageText(const PageInfo& info, const std::vector<ElementRef>& elements);

/// What a page's pictures are told apart by: PictureText of each element that can hold one, in the order of
/// WalkElements.
Json PictureTexts(const std::vector<ElementRef>& elements);

/// The page with all properties of each element, and `pictures` in the place of their pictures: what a page
/// is compared with, which no import takes.
std::string CompletePageText(const PageInfo& info, const std::vector<ElementRef>& elements,
                             const Json& pictures);
inline std::string CompletePageText(const PageInfo& info, const std::vector<ElementRef>& elements) {
  return CompletePageText(info, elements, PictureTexts(elements));
}

/// The page of a text of CompletePageText, and its pictures, which the elements are without. Throws as
/// ReadPageFile.
struct CompletePage {
  PageFile page;
  Json pictures;
};
CompletePage ReadCompletePage(std::string_view text, const std::string& place);

}  // namespace quenzel7::cli
