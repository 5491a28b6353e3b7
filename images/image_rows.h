#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "images/panel_pixels.h"
#include "platform/ado/connection.h"

/// Rows of the project's pictures: how they are found, read, and set free. Errors of the project and its
/// database pass through; a value that is not there is error 94, telling the column.
namespace quenzel7 {

/// What a row of ProjectImages is for.
enum ImageRecordStatus : Long {
  /// Pictures of the panel itself; nothing but SetImageSystem touches their rows.
  kSystemImageRead = 0,
  kSystemImageWritten = 1,
  /// Holds nothing and waits for another picture, or to be trimmed.
  kFreeImage = 2,
  /// At least one element or page has it.
  kImageInUse = 3,
};

/// The query for a picture of any state, and for one that is in use.
std::string ImageQuery(const std::string& columns, Long crc);
std::string ImageInUseQuery(const std::string& columns, Long crc);

/// The number of columns of a project whose pictures tell the bits of a pixel, the last of them.
inline constexpr Long kImageColumnsWithBits = 12;

/// The query for none of the pictures, which tells their columns and takes new ones.
inline constexpr const char* kNoImageRowsQuery = "SELECT * FROM ProjectImages WHERE RecordStatus=-1";

/// The rows of a query of the open project, run as the text that it is.
ado::RecordsetRef OpenImageRows(const std::string& query, ado::CursorType cursor);

/// Reads the first row of a query, if there is one; tells whether there is.
bool ReadFirstImageRow(const std::string& query, const std::function<void(const ado::Recordset&)>& read);

/// Values of the current row.
Long NumberIn(const ado::Recordset& row, std::string_view column);
/// Empty for Null.
std::string TextIn(const ado::Recordset& row, std::string_view column);
/// The pixels of a column, decompressed; none for Null, for none, and for what cannot be decompressed.
PixelBytes PixelsIn(const ado::Recordset& row, std::string_view column);

/// How many bits a pixel takes; 0 for a picture from before pictures told it.
Long BitsIn(const ado::Recordset& row);

/// The number in a query's only column.
Long CountOf(const std::string& query, std::string_view column);

/// Takes the rows of a query from the first that is left to the last.
template <class Take>
void ForEachRow(ado::Recordset& rows, Take take) {
  for (; !rows.Eof(); rows.MoveNext()) take(rows);
}

/// Sets the current row free, field by field, and writes it.
void FreeImageRow(ado::Recordset& row);

/// The query for the rows of pictures that no element and no page has.
std::string OrphanImagesQuery();

/// Sets the first row of a picture that nothing has free, if there is one.
void FreeFirstOrphanImage();

/// Sets the row of a picture free if nothing has it any more. What an UPDATE of one and of all pictures of an
/// element say differs in the order of columns only.
enum class FreeingOrder { PanelPixelsFirst, OriginalPixelsFirst };
void FreeImageWithoutLinks(Long crc, FreeingOrder order);

/// Gives the row of that number, which an element or a page has or nothing, a number behind all others; tells
/// whether there is one. The rows of the panel itself stay.
bool MoveImageRow(Long index);

/// Deletes the free rows behind the last one in use.
void TrimImageRows();

/// Sets the rows of all pictures that nothing has free, one after another, and trims.
void CollectOrphanImages();
/// The same in one statement.
void CollectOrphanImagesAtOnce();

}  // namespace quenzel7
