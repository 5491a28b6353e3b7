#pragma once

#include <string>
#include <vector>

#include "images/panel_pixels.h"
#include "platform/ado/connection.h"

/// The pictures that a project keeps, for all of its elements and pages.
namespace quenzel7::cli {

/// A row of ProjectImages without its pixels. Sizes are in pixels.
struct StoredPicture {
  Long index, crc, status;
  Long dx, dy, dxOrg, dyOrg;
  Long bits;
  std::string path;
};

/// The pictures by their index; none in a project from before pictures.
std::vector<StoredPicture> StoredPictures(ado::Connection& connection);

/// How messages call the state of a row: "in use", "free", "system", or its number.
std::string StateText(Long status);

/// Who has a picture: a row of ElementsAndImages, `place` being the index there, or of PagesAndImages,
/// `place` being the type.
struct PictureLink {
  bool isOfPage;
  Long owner, place, crc;
  Long transparency;
};

/// The links of elements by element and index, then those of pages by page and type.
std::vector<PictureLink> PictureLinks(ado::Connection& connection);

/// The links of a page by type.
std::vector<PictureLink> PageLinks(ado::Connection& connection, Long page);

/// A picture that lies behind a page.
struct BackPicture {
  Long dx, dy, bits, transparency;
  PixelBytes pixels;
};

/// The pictures behind a page, the lowest type first; those that are not in use are left out.
std::vector<BackPicture> PicturesBehind(ado::Connection& connection, Long page);

}  // namespace quenzel7::cli
