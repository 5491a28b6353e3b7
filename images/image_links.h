#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "images/image_rows.h"

/// Which elements and pages have which pictures. Errors of the project and its database pass through.
namespace quenzel7 {

/// All links of an element.
std::string ElementLinksQuery(const std::string& columns, Long elementId);
/// The link of an element to its picture of that index, and that of a page to its picture of that kind.
std::string ElementImageLinkQuery(Long elementId, Long imageIndex);
std::string PageImageLinkQuery(Long pageId, Long imageType);

/// Columns of a link, in the order in which they are written.
using LinkColumns = std::vector<std::pair<std::string_view, Long>>;
/// Writes the link that the query finds, or a new one.
void WriteImageLink(const std::string& query, ado::CursorType cursor, const LinkColumns& columns);

/// How transparent the element's picture of that index is; 0 without one.
Long GetElementImageTransparency(Long pElement_ID, Long pImageIndex);
/// How transparent the first picture of the element is; 0 without one.
Long GetElementTransparency(Long pElement_ID);
/// Sets how transparent all pictures of the element are.
void SetElementTransparency(Long pLevel, Long pElement_ID);

/// Takes all pictures from an element: those that nothing else has are set free, and the rows trimmed.
void ReleaseElementImages(Long pElement_ID);
/// Takes one picture from an element, in the same way.
void ReleaseElementImage(Long pCRC, Long pElement_ID, Long pImageIndex);

/// Deletes the links of an element behind its first `pCount` ones; none for a count below 1.
void TrimElementImages(Long pElement_ID, Long pCount);

}  // namespace quenzel7
