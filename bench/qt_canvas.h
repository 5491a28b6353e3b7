#pragma once

#include <memory>

#include "bench/canvas.h"

namespace quenzel7::bench {

std::unique_ptr<Canvas> MakeQtCanvas(int width, int height);

}  // namespace quenzel7::bench
