#pragma once

#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The picture at another size; both sizes are positive.
///
/// In a direction in which it shrinks, a pixel is the mean of what it covers, parts of pixels by their share.
/// In one in which it grows, a pixel is the one that its middle lies in: no colour comes in that was not
/// there, so that a picture in panel colours stays one and the colour of a transparent picture keeps a
/// sharp edge. Means are those of the stored numbers, each channel by itself and rounded once, a half up.
Picture Resized(const Picture& picture, Long dx, Long dy);

}  // namespace quenzel7::loomis2
