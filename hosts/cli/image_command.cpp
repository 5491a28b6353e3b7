#include <limits>
#include <map>
#include <set>

#include "hosts/cli/commands.h"
#include "hosts/cli/counted.h"
#include "hosts/cli/distinct_output.h"
#include "hosts/cli/element_picture.h"
#include "hosts/cli/host_tables.h"
#include "hosts/cli/png_writer.h"
#include "hosts/cli/progress_bar.h"
#include "hosts/cli/project_session.h"
#include "hosts/cli/stored_pictures.h"
#include "hosts/cli/text_table.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/whole_number.h"
#include "images/image_queries.h"
#include "images/image_rows.h"
#include "images/page_image.h"
#include "platform/gdi/owned.h"
#include "platform/gdi/surface.h"
#include "shapes/picture_painting.h"

namespace quenzel7::cli {
namespace {

std::string SizeText(Long dx, Long dy) { return std::to_string(dx) + "x" + std::to_string(dy); }

/// 0 by 0 is the size of the file.
struct Size {
  Long dx = 0, dy = 0;
};

Size SizeFrom(const std::string& text) {
  if (text.empty()) return {};
  constexpr Long kLongestSide = 32767;
  const auto cross = text.find_first_of("xX");
  if (cross != std::string::npos) {
    const auto dx = WholeNumberFromText(text.substr(0, cross));
    const auto dy = WholeNumberFromText(text.substr(cross + 1));
    const auto isSide = [](const std::optional<Long>& side) {
      return side && *side >= 1 && *side <= kLongestSide;
    };
    if (isSide(dx) && isSide(dy)) return {*dx, *dy};
  }
  throw UserError("size " + Quoted(text) + ": WIDTHxHEIGHT in pixels from 1 to " +
                  std::to_string(kLongestSide) + " is expected");
}

/// The page that pictures come to.
Long PageFor(ado::Connection& connection, std::optional<Long> page) {
  if (page) return *page;
  const std::vector<PageInfo> pages = HostPages(connection).All();
  return pages.size() == 1 ? pages.front().number : 0;
}

bool HasElements(Long page) {
  return CountOf(
             "SELECT COUNT(*) AS NumberOfElements FROM HMI_Elements WHERE DisplayID=" + std::to_string(page),
             "NumberOfElements") > 0;
}

/// The types that new pictures of a page get.
class FreeTypes {
 public:
  FreeTypes(ado::Connection& connection, const ImageAddition& addition, Long page)
      : next_(addition.type.value_or(0)) {
    const auto count = static_cast<Long>(addition.files.size());
    if (addition.type) {
      if (*addition.type > std::numeric_limits<Long>::max() - (count - 1)) {
        throw UserError("type " + std::to_string(*addition.type) + ": there are not enough types behind it");
      }
      return;
    }
    for (const PictureLink& link : PageLinks(connection, page)) taken_.insert(link.place);
  }

  Long Next() {
    while (taken_.count(next_) > 0) ++next_;
    const Long type = next_;
    taken_.insert(type);
    return type;
  }

 private:
  std::set<Long> taken_;
  Long next_;
};

void Save(const loomis2::LibraryPicture& read, bool isTransparent, Long page, Long type) {
  clsPageImage record;
  record.CRC8bpp(read.crc);
  record.SetData8bpp(read.data);
  record.SetData8bppORG(read.dataOrg);
  record.Path(read.path);
  record.SourceCRC(read.libCrc);
  record.DxORG(read.dxOrg);
  record.DyORG(read.dyOrg);
  record.TransparencyLevel(isTransparent ? 1 : 0);
  record.Bits(read.bits);
  record.SaveToDBEx(page, type, read.dx, read.dy, read.bits);
}

Long CrcFrom(const std::string& text) {
  const auto number = WholeNumberFromText(text);
  if (!number) throw UserError("CRC " + Quoted(text) + ": a whole number of 32 bits is expected");
  return *number;
}

/// The picture as a host paints it, on white.
Picture Painted(const PixelBytes& pixels, Long dx, Long dy, Long bits) {
  const gdi::OwnedBitmap bitmap(IsImageDataValid(pixels, dx, dy, bits) ? BitmapOfPixels(pixels, dx, dy, bits)
                                                                       : 0);
  if (bitmap.Get() == 0) {
    throw UserError(pixels.empty() ? "has no pixels"
                                   : "has " + std::to_string(pixels.size()) +
                                         " bytes of pixels, which do not fit its size " + SizeText(dx, dy));
  }
  gdi::Surface surface(dx, dy);
  PaintOpaquePicture(surface.Dc(), 0, 0, bitmap.Get(), BitmapSizeOf(bitmap.Get()));
  const auto painted = surface.Pixels();
  return {dx, dy, {painted.begin(), painted.end()}};
}

}  // namespace

int AddImagesCommand(const std::string& projectPath, const ImageAddition& addition, const Console& console) {
  const Size size = SizeFrom(addition.size);
  const Long bits = addition.bits == kTwoBytePixels ? kTwoBytePixels : 0;
  ProjectSession project(projectPath, corvane1::ProjectMode::Open);
  std::string told;
  std::optional<Long> bare;
  project.Do([&] {
    ado::Transaction transaction(project.Connection());
    const Long page = PageFor(project.Connection(), addition.page);
    FreeTypes types(project.Connection(), addition, page);
    ProgressBar progress(console, "adding", addition.files.size());
    for (const std::string& file : addition.files) {
      loomis2::LibraryPicture read = ReadPictureFile(file, {}, {size.dx, size.dy, bits});
      KeepStoredSource(read);
      const Long type = types.Next();
      Save(read, addition.isTransparent, page, type);
      told += "picture " + std::to_string(read.crc) + " of " + SizeText(read.dx, read.dy) + ": page " +
              std::to_string(page) + ", type " + std::to_string(type) + ", from " + OneLine(file) + "\n";
      progress.Advance();
    }
    // Those that the new ones took the place of.
    CollectOrphanImagesAtOnce();
    if (!HasElements(page)) bare = page;
    transaction.Commit();
  });
  if (bare) console.err << "note: page " << *bare << " has no elements" << std::endl;
  console.out << told << Counted(addition.files.size(), "picture") << " added to " << projectPath << '\n';
  return 0;
}

int ListImagesCommand(const std::string& projectPath, const Console& console) {
  using Side = TextTable::Side;
  TextTable table({{"index", Side::Right},
                   {"CRC", Side::Right},
                   {"state", Side::Left},
                   {"size", Side::Left},
                   {"original", Side::Left},
                   {"bits", Side::Right},
                   {"links", Side::Right},
                   {"used by", Side::Left},
                   {"path", Side::Left}});
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  project.Do([&] {
    struct Users {
      std::size_t count = 0;
      std::string names;
    };
    std::map<Long, Users> users;
    for (const PictureLink& link : PictureLinks(project.Connection())) {
      Users& known = users[link.crc];
      ++known.count;
      known.names += (known.names.empty() ? "" : ", ") + std::string(link.isOfPage ? "page " : "element ") +
                     std::to_string(link.owner);
      if (link.isOfPage) known.names += " type " + std::to_string(link.place);
    }
    for (const StoredPicture& picture : StoredPictures(project.Connection())) {
      const Users known = picture.status == kImageInUse ? users[picture.crc] : Users();
      constexpr Long kOneByteBits = 8;
      const Long bits = picture.bits == kTwoBytePixels ? kTwoBytePixels : kOneByteBits;
      table.Add({std::to_string(picture.index), std::to_string(picture.crc), StateText(picture.status),
                 SizeText(picture.dx, picture.dy), SizeText(picture.dxOrg, picture.dyOrg),
                 std::to_string(bits), std::to_string(known.count), known.names, PictureName(picture.path)});
    }
  });
  table.Write(console.out);
  return 0;
}

int ExtractImageCommand(const std::string& projectPath, const std::string& crc, bool original,
                        const std::string& outputPath, const Console&) {
  RequireDistinctOutput(PicturePlace(outputPath), outputPath, {projectPath});
  const Long number = CrcFrom(crc);
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  const Picture picture = project.Do([&] {
    for (const StoredPicture& stored : StoredPictures(project.Connection())) {
      if (stored.crc != number) continue;
      return AtPlace(project.Place() + ", picture " + crc, [&] {
        return original ? Painted(GetImageDataORGByCRC(number), stored.dxOrg, stored.dyOrg, stored.bits)
                        : Painted(GetImageData8bppByCRC(number), stored.dx, stored.dy, stored.bits);
      });
    }
    throw UserError(project.Place() + " has no picture " + crc + "; quenzel7 image PROJECT list tells them");
  });
  WritePng(outputPath, picture);
  return 0;
}

}  // namespace quenzel7::cli
