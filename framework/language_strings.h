#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/automation/types.h"
#include "platform/corvane1/string_library.h"
#include "platform/corvane1/text_extent.h"

/// What the string library has in several languages. Its current language stays what it was, also when an
/// error of a service or of the project's connection passes through.
namespace quenzel7 {

/// The string of that number in the language in which it takes the largest area, and in `fontNumber` the
/// number of its font, so that a layout made for it fits all languages. Among equals the first language
/// counts; where no language has a text that takes any area, the answer is that of language 0. A string that
/// leaves the font to whoever shows it is measured in what the font service takes for font -1.
std::string WidestLanguageString(Long number, Long& fontNumber);

/// The room that the string of that number needs in all languages: the greatest width and the greatest
/// height, each string measured in its own font, or in the given one when it leaves the font to whoever shows
/// it. Where no language has a text it is that of the word "EMPTY" in font 0.
corvane1::TextExtent RoomForAllLanguages(Long number, Long fontNumber);

/// Opens the library and tells so, then visits the strings of those numbers, each in all languages that have
/// a text of it, in the order of the numbers and of the languages.
void ForEachLanguageString(const std::vector<Long>& numbers, const std::function<void()>& opened,
                           const std::function<void(const corvane1::LibraryString&)>& visit);

}  // namespace quenzel7
