#include "platform/loomis2/picture_file.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/loomis2/begins_with.h"
#include "platform/loomis2/bmp_reader.h"
#include "platform/loomis2/gif_reader.h"
#include "platform/loomis2/icon_reader.h"
#include "platform/loomis2/invalid_picture.h"
#include "platform/loomis2/jpeg_reader.h"

namespace quenzel7::loomis2 {
namespace {

using std::string_view_literals::operator""sv;

struct Reader {
  std::string_view mark;
  Picture (*read)(std::span<const Byte> file);
};

constexpr Reader kReaders[] = {
    {"BM"sv, &ReadBmp},
    {"GIF87a"sv, &ReadGif},
    {"GIF89a"sv, &ReadGif},
    {"\xFF\xD8\xFF"sv, &ReadJpeg},
    {"\x00\x00\x01\x00"sv, &ReadIcon},
    {"\x00\x00\x02\x00"sv, &ReadIcon},
};

struct Metafile {
  std::string_view mark;
  std::string_view name;
  std::size_t at = 0;  ///< the second mark's place
  std::string_view secondMark = {};
};

constexpr Metafile kMetafiles[] = {
    {"\xD7\xCD\xC6\x9A"sv, "a placeable wmf file"},
    {"\x01\x00\x09\x00"sv, "a wmf file"},
    {"\x02\x00\x09\x00"sv, "a wmf file"},
    {"\x01\x00\x00\x00"sv, "an emf file", 40, " EMF"sv},
};

}  // namespace

Picture DecodePicture(std::span<const Byte> file) {
  for (const Reader& reader : kReaders) {
    if (BeginsWith(file, reader.mark)) return reader.read(file);
  }
  for (const Metafile& metafile : kMetafiles) {
    const std::span<const Byte> second = file.subspan(std::min(file.size(), metafile.at));
    if (BeginsWith(file, metafile.mark) && BeginsWith(second, metafile.secondMark)) {
      RefusePicture("metafiles cannot be read yet: this is " + std::string(metafile.name));
    }
  }
  RefusePicture("this is no picture that can be read: expected bmp, gif, jpg, ico or cur");
}

}  // namespace quenzel7::loomis2
