#include "variables/text/text_list.h"

#include <algorithm>
#include <string>

#include "framework/language_strings.h"
#include "platform/automation/automation_error.h"
#include "platform/platform.h"

namespace quenzel7 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

/// A font of the string library that leaves the choice to whoever shows the string.
constexpr Long kNoFont = -1;
constexpr Long kNoString = -1;
/// What StorageText says of texts that are all in the library.
constexpr Long kFromLibrary = -1;

/// The greatest width and the greatest height that texts need, each for itself.
class LargestSize {
 public:
  /// Texts are measured in the font and style of another one.
  explicit LargestSize(const clsText& like) : font_(like.FontNumber()) {
    scratch_.FontNumber(font_);
    scratch_.ItfHmiElement::Flat3D(like.ItfHmiElement::Flat3D());
  }

  void Measure(const std::string& text) {
    scratch_.Txt(text);
    Long dx = 0, dy = 0;
    scratch_.GetOptimalDimensions(dx, dy);
    size_ = {std::max(size_.width, dx), std::max(size_.height, dy)};
  }
  void Measure(const corvane1::LibraryString& string) {
    scratch_.FontNumber(string.fontNumber != kNoFont ? string.fontNumber : font_);
    Measure(string.text);
  }
  const corvane1::TextExtent& Size() const { return size_; }

 private:
  Long font_;
  clsText scratch_;
  corvane1::TextExtent size_;
};

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

std::size_t TextListHandler::Place(Long index) const {
  if (index < 1 || index > ListCount()) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, "text " + std::to_string(index) +
                                                                " of a list was asked for, there are 1 to " +
                                                                std::to_string(ListCount()));
  }
  return static_cast<std::size_t>(index) - 1;
}

void TextListHandler::InsertBefore(Long pIndex) {
  const auto place = static_cast<std::ptrdiff_t>(Place(pIndex));
  texts_.insert(texts_.begin() + place, NewText());
}

void TextListHandler::RemoveText(Long pIndex) {
  texts_.erase(texts_.begin() + static_cast<std::ptrdiff_t>(Place(pIndex)));
}

void TextListHandler::Renew(Long count) {
  if (count > kMostTexts) {
    throw AutomationError(ErrorNumber::OutOfMemory, "no room for a list of " + std::to_string(count) +
                                                        " texts: " + std::to_string(kMostTexts) +
                                                        " are the most");
  }
  Clear();
  for (Long text = 0; text < count; ++text) AppendText();
}

void TextListHandler::DeleteAllStorageIDs() {
  for (const TextElementRef& text : texts_) text->StorageStringID(kNoString);
}

void TextListHandler::ReleaseOwned() {
  TextHandler::ReleaseOwned();
  Clear();
}

void TextListHandler::ReSyncDrawingElementParams(Long pDefaultDisplay, Long pFontNum) {
  const clsVarTextElement& entry = *ListTexts(pDefaultDisplay);
  Long font = kNoFont;
  const std::string text =
      storageText_ != 0 ? WidestLanguageString(entry.StorageStringID(), font) : entry.Txt();
  Drawing().Txt(text);
  Drawing().ColorBack(entry.ColorBack());
  Drawing().FontNumber(font != kNoFont ? font : pFontNum);
}

void TextListHandler::ConvertFlatColorToClosestGradientColor() {
  const auto colors = Platform::Current().colorService;
  for (const TextElementRef& text : texts_) {
    text->ColorBack(colors->GetClosestGradientColor(text->ColorBack()));
  }
  Drawing().ColorBack(colors->GetClosestGradientColor(Drawing().ColorBack()));
}

void TextListHandler::ItfVarBinaryHandler_GetOptimalDimensions(Long& pDx, Long& pDy) {
  const corvane1::TextExtent size = storageText_ == kFromLibrary ? LargestLibraryText() : LargestText();
  pDx = size.width;
  pDy = size.height;
}

corvane1::TextExtent TextListHandler::LargestText() const {
  LargestSize largest(Drawing());
  for (const TextElementRef& text : texts_) largest.Measure(text->Txt());
  return largest.Size();
}

corvane1::TextExtent TextListHandler::LargestLibraryText() const {
  LargestSize largest(Drawing());
  largest.Measure(Drawing().Txt());
  std::vector<Long> strings;
  for (const TextElementRef& text : texts_) {
    if (text->StorageStringID() >= 0) strings.push_back(text->StorageStringID());
  }
  ForEachLanguageString(strings, [&](const corvane1::LibraryString& string) { largest.Measure(string); });
  return largest.Size();
}

bool TextListHandler::ItfVarBinaryHandler_IsHmiFontInUse(Long pFontNum) const {
  return TextHandler::ItfVarBinaryHandler_IsHmiFontInUse(pFontNum) ||
         std::any_of(texts_.begin(), texts_.end(),
                     [pFontNum](const TextElementRef& text) { return text->StorageFont() == pFontNum; });
}

}  // namespace quenzel7
