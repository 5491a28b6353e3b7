#pragma once

#include <span>
#include <string_view>

namespace quenzel7::cli {

/// The page file of the demo, as it stands in the folder demo.
std::string_view DemoPage();

/// The page file of its second page, a screen of variables.
std::string_view DemoMachine();

/// A picture file of the demo: its name in the folder demo/pictures, and its bytes.
struct DemoPicture {
  std::string_view name;
  std::string_view bytes;
};

/// The picture files of the demo, by name.
std::span<const DemoPicture> DemoPictures();

/// The texts of the demo in its languages, as they stand there.
std::string_view DemoStrings();

}  // namespace quenzel7::cli
