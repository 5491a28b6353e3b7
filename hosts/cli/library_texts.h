#pragma once

#include <string>

#include "framework/element_contract.h"
#include "platform/ado/recordset.h"
#include "platform/corvane1/project_string_library.h"

/// Elements whose text is a string of the project's string library, numbered by StorageStringID. They show
/// the library's text in the library's font; their rows, and page files, have a text and a font of their own,
/// which the library's take the place of.
namespace quenzel7::cli {

/// The string library of the project that is open, with a current language of its own.
corvane1::ProjectStringLibrary OpenedLibrary();

/// Whether the element has a text that is fitted into its place.
bool BearsText(const ItfHmiElement& element);

/// What lists call the element by, in quotes: its text, or the name of a variable; empty for others.
std::string CaptionOf(ItfHmiElement& element);

/// Whether the element shows a string of the library.
bool ShowsLibraryString(ItfHmiElement& element);

/// Gives an element that was loaded the text and the font of its row. Errors of the columns.
void TakeRowsText(ItfHmiElement& element, const ado::Recordset& row);

/// Gives an element that was not loaded from a project text and font of the string that it shows, if it shows
/// one, as loading does. Errors of the string library.
void TakeLibrarysText(ItfHmiElement& element);

}  // namespace quenzel7::cli
