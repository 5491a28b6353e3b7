#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "framework/element_contract.h"
#include "hosts/cli/page_file.h"

namespace quenzel7::cli {

/// Judges where elements stand, by the judgement of the elements themselves.
class PlaceCheck {
 public:
  /// What is wrong with the element's place and size on a page with that panel, or nothing. Without a panel
  /// only the size is judged. A group has no place.
  std::string Check(ItfHmiElement& element, const std::optional<Panel>& panel);

 private:
  /// The maps for elements to be judged against, by width and height.
  std::map<std::pair<Long, Long>, automation::Variant> maps_;
};

}  // namespace quenzel7::cli
