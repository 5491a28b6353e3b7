#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "framework/element_contract.h"
#include "hosts/cli/stored_pictures.h"

namespace quenzel7::cli {

/// Judges the pictures of elements.
class PictureCheck {
 public:
  explicit PictureCheck(ado::Connection& connection);

  /// What is wrong with the picture of a loaded element: it is not in the project, or its pixels do not fit
  /// its size. Nothing for an element without one. Errors of the element.
  std::vector<std::string> Check(ItfHmiElement& element) const;

 private:
  /// Those in use by their CRCs.
  std::map<Long, StoredPicture> pictures_;
};

/// What is wrong with the tables of pictures: links of elements that are not there, to pictures that are not
/// there, pictures in use that nothing has, two of one CRC, and pictures in use of sizes, bits or pixels that
/// cannot be. `elements` are the IDs of all elements. Errors of the tables.
std::vector<std::string> CheckPictureTables(ado::Connection& connection, const std::set<Long>& elements);

/// The pages that have pictures behind them and are none of `pages`. Errors of the tables.
std::vector<std::string> CheckPicturePages(ado::Connection& connection, const std::set<Long>& pages);

/// The files of pictures in use that cannot be read any more, or are others now. Errors of the tables.
std::vector<std::string> CheckPictureFiles(ado::Connection& connection);

}  // namespace quenzel7::cli
