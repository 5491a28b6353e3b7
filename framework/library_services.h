#pragma once

#include <span>
#include <string>

#include "platform/automation/types.h"
#include "platform/automation/variant.h"

/// What elements ask of the host's services that belong to no project. The services are those of
/// Platform::Current(); what they raise passes through.
namespace quenzel7 {

/// The size in bytes that the element of that ID takes in the panel.
Long GetElementSize(Long elementId);

/// The number of the font that new elements take.
Long GetDefaultFontNumber();

/// Shows a numbered message with the argument as its only insert; gives the user's answer.
Long ShowLibraryMessage(Long number, automation::Variant& argument);
/// The same for a message without an insert.
Long ShowLibraryMessage(Long number);

/// Shows a box with OK alone and a text of the library's own.
void ShowLibraryBox(const std::string& text);

/// Passes an error to the host's error log, as one of "Quenzel7.dll".
void ReportLibraryError(const std::string& source, Long number, const std::string& description,
                        const std::string& text1, const std::string& text2, Long value);

/// The CRC of a byte array.
Long CalcDataCRC(std::span<const Byte> data);

}  // namespace quenzel7
