#pragma once

#include "hosts/cli/console.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/picture.h"

namespace quenzel7::cli {

/// Paints a page in the size of its panel, white, in layers: the frames, then what is neither frame nor
/// variable, then the variables, in each layer from the lowest to the highest; a group paints its share of
/// each layer.
Picture RenderPage(const LoadedPage& page, const Console& console);

}  // namespace quenzel7::cli
