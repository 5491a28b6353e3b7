#include "variables/text/text_list.h"

#include <algorithm>
#include <string>
#include <utility>

#include "framework/language_strings.h"
#include "platform/automation/automation_error.h"
#include "platform/platform.h"
#include "variables/largest_text.h"

namespace quenzel7 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

}  // namespace

TextListHandler::TextListHandler(ElementDefault colorBack, ElementDefault colorFore, int texts)
    : colorBack_(colorBack), colorFore_(colorFore) {
  Renew(texts);
}

TextElementRef TextListHandler::NewText() const {
  auto text = std::make_shared<clsVarTextElement>();
  text->ColorBack(ElementSetting(colorBack_, "103"));
  text->ColorFore(ElementSetting(colorFore_, "5"));
  return text;
}

void TextListHandler::RequireRoom(Long count) {
  if (count <= kMostTexts) return;
  throw AutomationError(ErrorNumber::OutOfMemory, "no room for a list of " + std::to_string(count) +
                                                      " texts: " + std::to_string(kMostTexts) +
                                                      " are the most");
}

std::size_t TextListHandler::Place(Long index) const {
  if (index < 1 || index > ListCount()) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, "text " + std::to_string(index) +
                                                                " of a list was asked for, there are 1 to " +
                                                                std::to_string(ListCount()));
  }
  return static_cast<std::size_t>(index) - 1;
}

void TextListHandler::AppendText() {
  RequireRoom(ListCount() + 1);
  texts_.push_back(NewText());
}

void TextListHandler::InsertBefore(Long pIndex) {
  RequireRoom(ListCount() + 1);
  TextElementRef text = NewText();
  const auto place = static_cast<std::ptrdiff_t>(Place(pIndex));
  texts_.insert(texts_.begin() + place, std::move(text));
}

void TextListHandler::RemoveText(Long pIndex) {
  texts_.erase(texts_.begin() + static_cast<std::ptrdiff_t>(Place(pIndex)));
}

void TextListHandler::Renew(Long count) {
  RequireRoom(count);
  std::vector<TextElementRef> texts;
  for (Long text = 0; text < count; ++text) texts.push_back(NewText());
  texts_ = std::move(texts);
}

void TextListHandler::DeleteAllStorageIDs() {
  for (const TextElementRef& text : texts_) text->StorageStringID(corvane1::kNoLibraryString);
}

void TextListHandler::ReleaseOwned() {
  TextHandler::ReleaseOwned();
  Clear();
}

void TextListHandler::ReSyncDrawingElementParams(Long pDefaultDisplay, Long pFontNum) {
  // Held, since services of the host may change the list meanwhile.
  const TextElementRef entry = ListTexts(pDefaultDisplay);
  corvane1::LibraryString shown{entry->Txt()};
  if (storageText_ != 0) shown.text = WidestLanguageString(entry->StorageStringID(), shown.fontNumber);
  Drawing().Txt(shown.text);
  Drawing().ColorBack(entry->ColorBack());
  Drawing().FontNumber(shown.FontOr(pFontNum));
}

void TextListHandler::ConvertFlatColorToClosestGradientColor() {
  const auto colors = Platform::Current().colorService;
  for (const TextElementRef& text : Texts()) {
    text->ColorBack(colors->GetClosestGradientColor(text->ColorBack()));
  }
  Drawing().ColorBack(colors->GetClosestGradientColor(Drawing().ColorBack()));
}

void TextListHandler::ItfVarBinaryHandler_GetOptimalDimensions(Long& pDx, Long& pDy) {
  const corvane1::TextExtent size = storageText_ == kFromLibrary ? LargestLibraryText() : LargestOwnText();
  // Without a text, and in a frame that has no size of its own, there is nothing to ask for.
  if (size == corvane1::TextExtent{}) return;
  pDx = size.width;
  pDy = size.height;
}

corvane1::TextExtent TextListHandler::LargestOwnText() const {
  LargestText largest(Drawing());
  for (const TextElementRef& text : Texts()) largest.Measure(text->Txt());
  return largest.Size();
}

corvane1::TextExtent TextListHandler::LargestLibraryText() const {
  LargestText largest(Drawing());
  std::vector<Long> strings;
  for (const TextElementRef& text : texts_) {
    if (text->StorageStringID() >= 0) strings.push_back(text->StorageStringID());
  }
  ForEachLanguageString(
      strings, [&] { largest.Measure(Drawing().Txt()); },
      [&](const corvane1::LibraryString& string) { largest.Measure(string); });
  return largest.Size();
}

bool TextListHandler::ItfVarBinaryHandler_IsHmiFontInUse(Long pFontNum) const {
  return TextHandler::ItfVarBinaryHandler_IsHmiFontInUse(pFontNum) ||
         std::any_of(texts_.begin(), texts_.end(),
                     [pFontNum](const TextElementRef& text) { return text->StorageFont() == pFontNum; });
}

}  // namespace quenzel7
