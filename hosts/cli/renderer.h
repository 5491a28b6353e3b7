#pragma once

#include "hosts/cli/console.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/picture.h"

namespace quenzel7::cli {

/// Paints a page in the size of its panel: white, then the elements from the lowest to the highest.
Picture RenderPage(const LoadedPage& page, const Console& console);

}  // namespace quenzel7::cli
