#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/open_page.h"
#include "bench/ratios.h"
#include "bench/sqlite_by_hand.h"
#include "framework/library_state.h"
#include "images/image_links.h"
#include "images/image_saving.h"
#include "platform/compression/zstd_compressor.h"
#include "platform/gdi/surface.h"
#include "platform/loomis2/file_image_library.h"
#include "shapes/bitmap.h"

namespace quenzel7::bench {
namespace {

// --- Drawing ---

constexpr Long kWidth = 320, kHeight = 240;
constexpr std::size_t kPixels = std::size_t{kWidth} * kHeight;

/// Stripes of many colours with grains of the colour of the first pixel, which is left out.
PixelBytes Grained() {
  PixelBytes pixels;
  for (Long y = 0; y < kHeight; ++y) {
    for (Long x = 0; x < kWidth; ++x) {
      const bool isGrain = (x * 7 + y * 13) % 10 == 0;
      pixels.push_back(static_cast<Byte>(isGrain ? 0 : (x / 3 + y / 2) % 255 + 1));
    }
  }
  return pixels;
}

/// What a transparent drawing has to move at the least, as plain copies between surfaces of the same sizes.
///
/// Making the bitmap counts as two copies at 4 bytes a pixel: the panel pixels become colours, and the bitmap
/// takes these. Of the nine copies between surfaces eight read or write one in colours, and count as 4 bytes
/// a pixel: picture to its copy, picture to mask, target to result, mask to result, inverse to picture,
/// picture to result, result to target, copy to picture. One, mask to inverse, is 1 bit a pixel.
class PlainCopies {
 public:
  void Run() {
    Copy(picture_, made_);
    Copy(made_, picture_);
    Copy(picture_, saved_);
    // A surface of its own stands for the one in colours beside a mask.
    Copy(picture_, made_);
    std::memcpy(inverse_.data(), mask_.data(), mask_.size());
    Copy(target_, result_);
    Copy(made_, result_);
    Copy(made_, picture_);
    Copy(picture_, result_);
    Copy(result_, target_);
    Copy(saved_, picture_);
    // Whoever reads them keeps the copies from being left out.
    if (target_[kPixels / 2] + inverse_[3] == 1) std::abort();
  }

 private:
  using Surface = std::vector<std::uint32_t>;
  static void Copy(const Surface& from, Surface& to) {
    std::memcpy(to.data(), from.data(), kPixels * sizeof from[0]);
  }

  Surface made_ = Surface(kPixels), picture_ = made_, saved_ = made_, result_ = made_, target_ = made_;
  std::vector<Byte> mask_ = std::vector<Byte>(kPixels / 8), inverse_ = mask_;
};

void AddDrawing(std::vector<Ratio>& ratios) {
  Platform::Current() = Platform();
  auto library = std::make_shared<loomis2::FileImageLibrary>(Platform::Current().fileChooser);
  library->Palette(Platform::Current().colorService->GetPalette());
  LibraryState::Current().ImageLibrary = library;
  {
    PixelBytes pixels = Grained(), none;
    clsBitmap bitmap;
    bitmap.SetImage8bppPropsEx(-1, kWidth, kHeight, none, 1, kWidth, kHeight, pixels, 0, 1, "", 8);
    const gdi::Surface panel(kWidth, kHeight);
    PlainCopies copies;
    constexpr int kDrawings = 20;
    const double ratio = TimeRatio(
        31, 5,
        [&] {
          for (int drawing = 0; drawing < kDrawings; ++drawing) bitmap.Draw(panel.Dc(), false);
        },
        [&] {
          for (int drawing = 0; drawing < kDrawings; ++drawing) copies.Run();
        });
    ratios.push_back({"clsBitmap.Draw, 320 x 240, transparent", ratio, 2.0, "memcpy of what its steps move"});
  }
  LibraryState::Current() = {};
}

// --- The store ---

constexpr Long kPictures = 1000, kSide = 16;

PixelBytes PixelsOf(Long picture) {
  PixelBytes pixels;
  for (Long i = 0; i < kSide * kSide; ++i) pixels.push_back(static_cast<Byte>(picture + i * i / 16));
  return pixels;
}

void AddAndRelease() {
  const std::string path = "one.bmp";
  for (Long picture = 1; picture <= kPictures; ++picture) {
    PixelBytes pixels = PixelsOf(picture);
    const PixelBytes original = pixels;
    AddBitmapImageToProject({picture, -1, kSide, kSide, original, kSide, kSide, pixels, path, 8}, picture, 0,
                            0);
  }
  for (Long picture = 1; picture <= kPictures; ++picture) ReleaseElementImages(picture);
}

/// The statements that AddAndRelease runs, prepared, and the same compression.
void AddAndReleaseByHand(HandDatabase& database) {
  const std::string path = "one.bmp";
  compression::ZstdCompressor compressor;
  HandStatement count(database, "SELECT COUNT(*) FROM ProjectImages WHERE CRC=? AND RecordStatus IN (3,2)");
  HandStatement free(database, "SELECT * FROM ProjectImages WHERE RecordStatus=2 ORDER BY \"Index\"");
  HandStatement add(database,
                    "INSERT INTO ProjectImages (CRC,Dx,Dy,Data8bpp,LibCRC,DxORG,DyORG,Data8bppORG,ImagePath,"
                    "RecordStatus,Bits) VALUES (?,?,?,?,?,?,?,?,?,?,?)");
  HandStatement link(database, "SELECT * FROM ElementsAndImages WHERE Element_ID=? AND Image_Index=?");
  HandStatement addLink(database,
                        "INSERT INTO ElementsAndImages (Image_CRC,TransparencyLevel,Element_ID,Image_Index) "
                        "VALUES (?,?,?,?)");
  HandStatement orphan(database,
                       "SELECT * FROM ProjectImages WHERE RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT "
                       "Image_CRC FROM ElementsAndImages) AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM "
                       "PagesAndImages)");
  HandStatement links(database, "SELECT * FROM ElementsAndImages WHERE Element_ID=?");
  HandStatement unlink(database, "DELETE FROM ElementsAndImages WHERE Element_ID=?");
  HandStatement onElements(database, "SELECT COUNT(*) FROM ElementsAndImages WHERE Image_CRC=?");
  HandStatement onPages(database, "SELECT COUNT(*) FROM PagesAndImages WHERE Image_CRC=?");
  HandStatement setFree(database,
                        "UPDATE ProjectImages SET LibCRC=-1,Dx=0,Dy=0,ImagePath=NULL,Data8bpp=NULL,DxORG=0,"
                        "DyORG=0,Data8bppORG=NULL,RecordStatus=2 WHERE CRC=? AND RecordStatus=3");
  HandStatement highest(database, "SELECT Max(\"Index\") FROM ProjectImages");
  HandStatement trim(database, "DELETE FROM ProjectImages WHERE \"Index\"=? AND RecordStatus=2");
  const auto run = [](HandStatement& statement) {
    const bool found = statement.Step();
    statement.Reset();
    return found;
  };
  for (Long picture = 1; picture <= kPictures; ++picture) {
    const PixelBytes pixels = PixelsOf(picture);
    PixelBytes block, originalBlock;
    compressor.Compress(pixels, block);
    compressor.Compress(pixels, originalBlock);
    run(count.Bind(1, picture));
    run(free);
    add.Bind(1, picture).Bind(2, kSide).Bind(3, kSide).Bind(4, block).Bind(5, -1).Bind(6, kSide);
    run(add.Bind(7, kSide).Bind(8, originalBlock).Bind(9, path).Bind(10, 3).Bind(11, 8));
    run(link.Bind(1, picture).Bind(2, 0));
    run(addLink.Bind(1, picture).Bind(2, 0).Bind(3, picture).Bind(4, 0));
    run(orphan);
  }
  for (Long picture = 1; picture <= kPictures; ++picture) {
    std::vector<int> images;
    links.Bind(1, picture);
    const int image = links.Place("Image_CRC");
    while (links.Step()) images.push_back(links.Int(image));
    links.Reset();
    run(unlink.Bind(1, picture));
    for (const int crc : images) {
      run(onElements.Bind(1, crc));
      run(onPages.Bind(1, crc));
      run(setFree.Bind(1, crc));
    }
    int top = 0, before = 0;
    do {
      before = top;
      highest.Step();
      if (highest.Int(0) != 0) top = highest.Int(0);
      highest.Reset();
      run(trim.Bind(1, top));
    } while (top != before);
  }
}

void AddStore(std::vector<Ratio>& ratios) {
  std::vector<double> store, hand;
  for (int turn = 0; turn < 5; ++turn) {
    const Folder folder;
    {
      const OpenPage page(folder.File("pictures.qz7"));
      store.push_back(ProcessorSeconds([&] {
        ado::Transaction transaction(page.Connection());
        AddAndRelease();
        transaction.Commit();
      }));
    }
    corvane1::OpenProject(folder.File("hand.qz7"), corvane1::ProjectMode::Create)->Close();
    HandDatabase database(folder.File("hand.qz7"));
    hand.push_back(ProcessorSeconds([&] {
      database.Run("BEGIN");
      AddAndReleaseByHand(database);
      database.Run("COMMIT");
    }));
  }
  ratios.push_back({"1,000 pictures added and released, one transaction", Median(store) / Median(hand), 2.0,
                    "prepared statements by hand"});
}

}  // namespace

std::vector<Ratio> BitmapRatios() {
  std::vector<Ratio> ratios;
  AddDrawing(ratios);
  AddStore(ratios);
  return ratios;
}

}  // namespace quenzel7::bench
