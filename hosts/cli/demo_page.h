#pragma once

#include <string_view>

namespace quenzel7::cli {

/// The page file of the demo, as it stands in the folder demo.
std::string_view DemoPage();

}  // namespace quenzel7::cli
