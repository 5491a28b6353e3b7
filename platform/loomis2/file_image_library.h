#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/loomis2/file_chooser.h"
#include "platform/loomis2/image_library.h"
#include "platform/loomis2/nearest_color.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The embedded image library: pictures from the files of the machine.
///
/// A path is that of an element: what stands behind its first ";" if there is one, looked for in Folder
/// unless it begins at the root, then as it stands; backslashes are slashes. Files end at `kMostFileBytes`. A
/// size, of a picture that is given too, counts when both sides are from 1 to `loomis2::kLongestSide` and
/// there are no more than `loomis2::kMostPixels` in all; others are none. A bitmap that is made has 32 bits a
/// pixel. Where there is no room for a result, what gives a status refuses it; the others raise error 7.
class FileImageLibrary final : public ImageLibrary {
 public:
  /// `chooser` lets the user choose files; without one nothing is ever chosen.
  explicit FileImageLibrary(std::shared_ptr<FileChooser> chooser);
  ~FileImageLibrary() override;

  std::string Name() const override { return name_; }
  void Name(const std::string& name) override { name_ = name; }
  std::string Folder() const override { return folder_; }
  void Folder(const std::string& folder) override { folder_ = folder; }
  automation::Variant Palette() const override { return palette_; }
  /// Keeps the colours as they are now. Error 13 when the value is no such array; the earlier palette stays
  /// then. Only one of 1 to 256 colours serves for pictures.
  void Palette(const automation::Variant& palette) override;

  gdi::HBITMAP CreateBitmapFrom8bpp(const std::vector<Byte>& pixels, Long dx, Long dy) override;
  gdi::HBITMAP CreateBitmapFrom16bpp(const std::vector<Byte>& pixels, Long dx, Long dy) override;
  /// As `Resized`: the mean of what a pixel covers, or the pixel that its middle lies in.
  gdi::HBITMAP StretchBitmap(gdi::HBITMAP bitmap, Long dx, Long dy) override;
  /// Distances are those of CIELAB.
  Long ConvertBitmapTo8bpp(Long conversionMode, gdi::HBITMAP bitmap, const automation::Variant& palette,
                           Long dx, Long dy, std::vector<Byte>& pixels, Long& crc) override;
  Long ConvertBitmapTo16bpp(gdi::HBITMAP bitmap, Long dx, Long dy, std::vector<Byte>& pixels,
                            Long& crc) override;
  /// Error diffusion for the photographs, "jpg" and "jpeg" files; the nearest colour for all others.
  Long GetConversionMode(const std::string& path) override;
  gdi::HBITMAP LoadResizedImage(const std::string& path, Long libCrc, Long dx, Long dy,
                                Long& status) override;
  /// The path of the picture begins with ";" when the chosen one has a ";" in it.
  Long SelectImageFile(LibraryPicture& picture, Long dx, Long dy) override;
  LibraryPicture ReadPicture(const std::string& path, Long dx, Long dy, Long bits) override;

 private:
  NearestColor& NearestIn(const PanelColors& colors);

  std::string name_;
  std::string folder_;
  automation::Variant palette_;
  std::shared_ptr<FileChooser> chooser_;
  /// For the palette that was used last: making one anew takes longer than most pictures.
  std::unique_ptr<NearestColor> nearest_;
};

}  // namespace quenzel7::loomis2
