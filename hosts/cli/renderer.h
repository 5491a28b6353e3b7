#pragma once

#include "hosts/cli/console.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/picture.h"

namespace quenzel7::cli {

/// Paints an element that is no group. False for one whose picture is damaged: the library takes it out of
/// the project, which cannot be done to one that is only read. Other errors of painting pass.
bool DrawElement(ItfHmiElement& element, Long hdc);

/// Paints a page in the size of its panel: white, the pictures behind it at its top left, and the elements in
/// layers: the frames, then what is neither frame nor
/// variable, then the variables, in each layer from the lowest to the highest; a group paints its share of
/// each layer. What cannot be painted as its picture is damaged is told on standard error.
Picture RenderPage(const LoadedPage& page, const Console& console);

}  // namespace quenzel7::cli
