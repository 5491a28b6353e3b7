#pragma once

#include "hosts/cli/picture.h"
#include "hosts/cli/sheet_samples.h"

namespace quenzel7::cli {

/// Whether a sheet carries titles and names.
enum class SheetNames { kNone, kShown };

/// Paints samples onto a white sheet, section below section, eight samples a row, each drawn in a context of
/// its own, so that no sample can spoil another.
Picture PaintSheet(const std::vector<SheetSection>& sections, SheetNames names);

}  // namespace quenzel7::cli
