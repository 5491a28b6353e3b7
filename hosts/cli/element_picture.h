#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "framework/element_contract.h"
#include "hosts/cli/json_document.h"
#include "images/panel_pixels.h"
#include "platform/automation/class_info.h"

/// The pictures of elements, as this host handles them: by call by name through ItfImage.
namespace quenzel7::cli {

/// What a page file says of an element's picture under this key.
inline constexpr std::string_view kPictureKey = "Picture";

/// A picture as a page file gives it: a file, or pixels.
struct FiledPicture {
  /// The file, seen from the page file; of pixels the one that they came from, as the project tells it.
  std::string path;
  /// 16 when a pixel takes two bytes.
  Long bits = 0;
  /// Whether the pixels are given, and `path` is not read.
  bool hasPixels = false;
  /// CRC of the source, -1 for none.
  Long source = kNoImage;
  /// The pixels at the picture's own size, and those on the panel; none when they are not given.
  Long width = 0, height = 0;
  PixelBytes pixels = {};
  PixelBytes panelPixels = {};
};

/// ItfImage of a class whose elements hold a picture, or nullptr.
const automation::Interface* PictureInterfaceOf(const automation::ClassInfo& elementClass);

/// Reads the picture of a page file. Throws UserError "must be ..., ... was given" and the like.
FiledPicture PictureFromJson(const Json& value);

/// Gives an element, whose other properties are set, its picture, at the size that the element has for it:
/// from the file as seen from `folder`, or from the pixels. Errors of the image library.
void TakePicture(ItfHmiElement& element, const FiledPicture& picture, const std::string& folder);

/// Tells an element that it has no picture: it is as large as the element.
void TakeNoPicture(ItfHmiElement& element);

/// Whether the element could hold a picture and has none.
bool IsWithoutPicture(ItfHmiElement& element);

/// Makes the picture of an element that has none 0 by 0 for as long as it lives, so that saving does not miss
/// the pixels of one; then it is as large as the element again. Other elements stay as they are.
class NoPictureSize {
 public:
  explicit NoPictureSize(ItfHmiElement& element);
  NoPictureSize(const NoPictureSize&) = delete;
  NoPictureSize& operator=(const NoPictureSize&) = delete;
  ~NoPictureSize();

 private:
  ItfHmiElement* element_;
};

/// How the project calls a file that a page file or a command names: the name, ";" and where the file is. A
/// name with a ";" in it is left out.
std::string PicturePath(const std::string& name, const std::string& folder);

/// Size and bits of a picture on the panel.
struct PictureMeasure {
  Long dx, dy, bits;
};

/// Reads a file that a page file or a command names, seen from `folder`. Throws UserError that names it.
loomis2::LibraryPicture ReadPictureFile(const std::string& name, const std::string& folder,
                                        const PictureMeasure& measure);

/// Gives a picture whose panel pixels the project has in use what its row there tells of where they came
/// from, file and original pixels: the row is shared, and what others have of it stays. Not where the row has
/// no original pixels that serve. Errors of the project.
void KeepStoredSource(loomis2::LibraryPicture& picture);

/// The name of such a path, or the whole path when it is none.
std::string PictureName(const std::string& path);

/// The picture of a saved element as a page file gives it: by the name of its file when that still gives this
/// picture, else by its pixels. Null without one, and for one without pixels.
Json JsonFromPicture(ItfHmiElement& element);

/// Whether the element has a picture of which there are no pixels, so that no page file can hold it.
bool HasPictureWithoutPixels(ItfHmiElement& element);

/// Why the file of a saved element's picture, when a page file can name it, no longer gives this picture:
/// "is not there", "is another one now"; empty when it does, and without a picture or a name.
std::string LostFileOf(ItfHmiElement& element);

/// The picture of an element in one line, by its file and CRCs; "none" without one.
std::string PictureText(ItfHmiElement& element);

/// The same without the file: what tells a picture from another one.
std::string PictureKeyText(ItfHmiElement& element);

/// The CRC of the element's picture; -1 without one.
Long PictureCrcOf(ItfHmiElement& element);

/// The width and height that the element has for its picture, and the bits of its pixels.
PictureMeasure MeasureOf(ItfHmiElement& element);

/// The panel pixels of the element's picture.
PixelBytes PanelPixelsOf(ItfHmiElement& element);

/// The file that the element's picture came from, as the project tells it.
std::string PicturePathOf(ItfHmiElement& element);

}  // namespace quenzel7::cli
