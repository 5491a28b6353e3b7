#pragma once

#include <string>
#include <vector>

#include "platform/automation/types.h"
#include "platform/corvane1/text_extent.h"

/// The words in which variables show days and months: a text file for each language, in the folder "Strings"
/// beside the folder of the project, or the one that comes with the library.
namespace quenzel7 {

/// The name of the word file of a language. Error 5 for 12, 20, 21 and numbers outside 0 to 26, which have
/// none.
std::string CalendarFileName(Long language);

/// The words that a format shows, one for each of its values: the days of the week from Sunday on
/// (`eTFT_CW`), the days of the month (`eTFT_CD`) or the months (`eTFT_CM`). They are the lines behind the
/// format's header in the language's file, to an empty line or the end; none when the file lacks the header.
/// Errors: 5 for another format and as CalendarFileName, 91 when no project is open, those of
/// `scripting::Files`.
std::vector<std::string> CalendarWords(Long language, Long formatType);

/// The width of the widest and the height of the highest of these words, in panel pixels, each as the optimal
/// size of a new `clsText` in that font; 0 x 0 without words. Errors as CalendarWords, and those
/// of clsText.
corvane1::TextExtent LargestCalendarWord(Long language, Long formatType, Long fontNumber);

}  // namespace quenzel7
