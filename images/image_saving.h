#pragma once

#include <string>
#include <string_view>

#include "images/image_rows.h"

/// How a picture comes into the project: into the row of its CRC, else into the free row of lowest index,
/// else into a new one; the pictures of pages differ where it is said. Errors of the project, its database
/// and the image library pass through; what was written by then stays.
namespace quenzel7 {

/// A picture to be saved. The pixels are made anew if they do not fit the size, and what was repaired is
/// taken over into `data`.
struct ImageToSave {
  Long crc;
  Long libCrc;
  Long dxOrg, dyOrg;
  const PixelBytes& dataOrg;
  Long dx, dy;
  PixelBytes& data;
  const std::string& path;
  Long bits;
};

/// Saves the picture of a bitmap element: the row, the element's link of that index, and sets free the first
/// picture that nothing has any more. The element's CRC stays the key, also of repaired pixels.
void AddBitmapImageToProject(const ImageToSave& image, Long elementId, Long imageIndex,
                             Long transparencyLevel);

/// Saves the row of a picture of a list. Gives the CRC of its pixels, which is another one after a repair;
/// the picture has its row under that one then. Projects from before pixels of two bytes are written too.
Long UpdateListImage(const ImageToSave& image);

/// Saves the row of a picture behind a page. Its CRC stays the key, also of repaired pixels. Where only a
/// free row has that CRC, the picture takes a new row all the same.
void UpdatePageImage(const ImageToSave& image);

/// Writes a picture of the panel itself into the current row, and its key with it; it is not checked.
void WriteSystemImage(ado::Recordset& row, const ImageToSave& image);

}  // namespace quenzel7
