#include "variables/calendar_words.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "framework/enums.h"
#include "platform/automation/automation_error.h"
#include "platform/platform.h"
#include "variables/largest_text.h"

namespace quenzel7 {
namespace {

struct Numbered {
  Long number;
  std::string_view text;
};

/// Projects look for the files under these names, that of the fifth included.
constexpr Numbered kLanguages[] = {
    {0, "English"},    {1, "Hebrew"},   {2, "Dutch"},       {3, "German"},   {4, "French"},
    {5, "Itanlian"},   {6, "Spanish"},  {7, "Portuguese"},  {8, "Danish"},   {9, "Swedish"},
    {10, "Norwegian"}, {11, "Turkish"}, {13, "Polish"},     {14, "Greek"},   {15, "Hungarian"},
    {16, "Czech"},     {17, "Slovene"}, {18, "Russian"},    {19, "Chinese"}, {22, "Bulgarian"},
    {23, "Japanese"},  {24, "Korean"},  {25, "Vietnamese"}, {26, "Slovak"},
};

constexpr Numbered kHeaders[] = {
    {eTFT_CW, "//Day Of Week//"},
    {eTFT_CD, "//Day Of Month//"},
    {eTFT_CM, "//Month//"},
};

/// The text of that number; error 5 when there is none, which says what was asked for.
template <std::size_t kSize>
std::string TextOf(const Numbered (&table)[kSize], Long number, const std::string& what) {
  const auto found = std::find_if(std::begin(table), std::end(table),
                                  [&](const Numbered& entry) { return entry.number == number; });
  if (found == std::end(table)) {
    throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall,
                                      what + " " + std::to_string(number) + " has no calendar words");
  }
  return std::string(found->text);
}

}  // namespace

std::string CalendarFileName(Long language) {
  return "Calendar_" + TextOf(kLanguages, language, "language") + ".txt";
}

std::vector<std::string> CalendarWords(Long language, Long formatType) {
  const std::string header = TextOf(kHeaders, formatType, "format");
  const std::string file = CalendarFileName(language);
  Platform& platform = Platform::Current();
  const auto stream =
      platform.files->OpenTextFile(platform.projectDatabase->Path() + "\\..\\Strings\\" + file);
  while (!stream->AtEndOfStream() && stream->ReadLine() != header) {
  }
  std::vector<std::string> words;
  while (!stream->AtEndOfStream()) {
    std::string line = stream->ReadLine();
    if (line.empty()) break;
    words.push_back(std::move(line));
  }
  return words;
}

corvane1::TextExtent LargestCalendarWord(Long language, Long formatType, Long fontNumber) {
  LargestText largest(fontNumber);
  for (const std::string& word : CalendarWords(language, formatType)) largest.Measure(word);
  return largest.Size();
}

}  // namespace quenzel7
