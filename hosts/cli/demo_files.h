#pragma once

#include <string_view>

namespace quenzel7::cli {

/// The page file of the demo, as it stands in the folder demo.
std::string_view DemoPage();

/// The texts of the demo in its languages, as they stand there.
std::string_view DemoStrings();

}  // namespace quenzel7::cli
