#pragma once

#include <span>

#include "platform/automation/types.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The picture in the bytes of a png stream, as icons hold it, put on white. Error 481 when they cannot be
/// read.
Picture ReadPng(std::span<const Byte> file);

}  // namespace quenzel7::loomis2
