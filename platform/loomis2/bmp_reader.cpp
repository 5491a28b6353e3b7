#include "platform/loomis2/bmp_reader.h"

#include <string>

#include "platform/loomis2/alpha.h"
#include "platform/loomis2/dib.h"
#include "platform/loomis2/invalid_picture.h"

namespace quenzel7::loomis2 {

Picture ReadBmp(std::span<const Byte> file) {
  ByteReader reader(file, "the bmp file");
  reader.Take(10);  // Its mark, its length and two numbers for programs.
  const std::uint32_t pixels = reader.U32();
  const DibHeader header = ReadDibHeader(reader);
  if (pixels < reader.Position()) {
    RefusePicture("pixels from byte " + std::to_string(pixels) + " on cannot be: the header ends at byte " +
                  std::to_string(reader.Position()));
  }
  const ColorTable colors = ReadDibColors(reader.Take(pixels - reader.Position()), header);
  Picture picture = ReadDibPixels(reader, header, colors);
  BlendOverWhite(picture);
  return picture;
}

}  // namespace quenzel7::loomis2
