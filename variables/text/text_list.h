#pragma once

#include <string_view>
#include <vector>

#include "shapes/element_setting.h"
#include "variables/handler_members.h"
#include "variables/text_element_keys.h"
#include "variables/text_handler.h"
#include "variables/var_text_element.h"

namespace quenzel7 {

/// What the handlers share that show one text out of several: the texts, one for each state. Texts and states
/// are counted from 1; a number outside the list is error 9.
class TextListHandler : public TextHandler {
 public:
  /// The most texts of a list.
  static constexpr Long kMostTexts = 65536;

  /// Takes all texts out of the list.
  void Clear() { texts_.clear(); }
  /// Puts a new text at the end of the list, in the colours of new texts. Error 7 for more than kMostTexts.
  void AppendText();
  /// Puts a new text before one of the list. Errors as AppendText, and 9.
  void InsertBefore(Long pIndex);
  /// Takes one text out of the list.
  void RemoveText(Long pIndex);
  /// How many there are, and one of them.
  Long ListCount() const { return static_cast<Long>(texts_.size()); }
  const TextElementRef& ListTexts(Long pIndex) const { return texts_[Place(pIndex)]; }

  /// 0 when the texts are the element's own, otherwise strings of the library are shown. Only for -1 all of
  /// them are measured in all languages, and keep the library's font when the variable is drawn.
  Long StorageText() const override { return storageText_; }
  void StorageText(Long pValue) { storageText_ = pValue; }
  /// Number of the string library.
  Long StorageLibNum() const { return storageLibNum_; }
  void StorageLibNum(Long pValue) { storageLibNum_ = pValue; }

  /// Makes all texts forget their strings of the library.
  void DeleteAllStorageIDs();
  /// Gives the text element the text of a state with its background, and the font that a string of the
  /// library has or the given one. Errors: 9 for a state outside the list, those of the string library and of
  /// the text's fitting.
  void ReSyncDrawingElementParams(Long pDefaultDisplay, Long pFontNum) override;
  /// Errors of the colour service.
  void ConvertFlatColorToClosestGradientColor() override;

 protected:
  /// The settings that tell the colours of new texts, and how many there are at first.
  TextListHandler(ElementDefault colorBack, ElementDefault colorFore, int texts);

  void ReleaseOwned() override;
  void ItfVarBinaryHandler_GetOptimalDimensions(Long& pDx, Long& pDy) override;
  bool ItfVarBinaryHandler_IsHmiFontInUse(Long pFontNum) const override;

  /// Settings of the list.
  template <class Handler>
  struct ListKeys;

  std::vector<TextElementRef> texts_;
  Long storageText_ = 0;
  Long storageLibNum_ = 0;

 private:
  std::size_t Place(Long index) const;
  TextElementRef NewText() const;
  /// Error 7 for more than kMostTexts.
  static void RequireRoom(Long count);
  /// A copy of the list, to walk it while a host, which may change it, is asked.
  std::vector<TextElementRef> Texts() const { return texts_; }
  /// Makes a new list of so many new texts. Error 7 for more than kMostTexts.
  void Renew(Long count);
  corvane1::TextExtent LargestOwnText() const;
  corvane1::TextExtent LargestLibraryText() const;

  ElementDefault colorBack_;
  ElementDefault colorFore_;
};

template <class Handler>
struct TextListHandler::ListKeys {
  using Texts = clsVarTextElement::Keys;

  // clang-format off
  static constexpr auto kDrawing = MakeNamedTable(
      PartKey<Handler, &Handler::Drawing, DrawingKeys::kTxt>("DrawingText_Txt"),
      PartKey<Handler, &Handler::Drawing, DrawingKeys::kFontNumber>("DrawingText_FontNumber"),
      PartKey<Handler, &Handler::Drawing, DrawingKeys::kColorFore>("DrawingText_ColorFore"),
      PartKey<Handler, &Handler::Drawing, DrawingKeys::kColorBack>("DrawingText_ColorBack"));
  static constexpr auto kStorage = MakeNamedTable(
      FieldKey<Handler, &Handler::storageText_>("StorageText").Guarded(),
      FieldKey<Handler, &Handler::storageLibNum_>("StorageLibNum").Guarded());
  /// Those of a text that is shown for one state.
  static constexpr auto kEntry = MakeNamedTable(
      Texts::kTxt, Texts::kColorFore, Texts::kColorBack,
      Texts::kStorageStringId.Guarded(), Texts::kStorageStringType.Guarded());
  // clang-format on
  static constexpr Key<Handler> kCount = {
      .name = "ListCount",
      .get = [](const Handler& handler) { return automation::Variant(handler.ListCount()); },
      .put =
          [](Handler& handler, const automation::Variant& value) {
            handler.TextListHandler::Renew(automation::To<Long>(value));
          }};
};

/// Entries that the default interfaces of these handlers have.
template <class Handler>
struct TextListMembers : HandlerMembers<Handler> {
  using Common = HandlerMembers<Handler>;

  static constexpr auto kClear =
      automation::Method<Handler, &TextListHandler::Clear>("Clear", "Takes all texts out of the list.");
  static constexpr auto kAppendText = automation::Method<Handler, &TextListHandler::AppendText>(
      "AppendText", "Puts a new text at the end of the list.");
  static constexpr auto kInsertBefore = automation::Method<Handler, &TextListHandler::InsertBefore>(
      "InsertBefore", "Puts a new text before one of the list, counted from 1.", "pIndex");
  static constexpr auto kRemoveText = automation::Method<Handler, &TextListHandler::RemoveText>(
      "RemoveText", "Takes one text out of the list, counted from 1.", "pIndex");
  static constexpr auto kListCount = automation::Property<Long>(
      "ListCount", "Number of texts.", AUTOMATION_GETTER(Handler, ListCount), nullptr);
  static constexpr auto kListTexts = automation::Method<Handler, &TextListHandler::ListTexts>(
      "ListTexts", "One text of the list, counted from 1.", "pIndex");
  static constexpr auto kDeleteAllStorageIDs =
      automation::Method<Handler, &TextListHandler::DeleteAllStorageIDs>(
          "DeleteAllStorageIDs", "Makes all texts forget their strings of the library.");
  static constexpr auto kConvert =
      automation::Method<Handler, &BinaryHandler::ConvertFlatColorToClosestGradientColor>(
          "ConvertFlatColorToClosestGradientColor",
          "Replaces the backgrounds by the colours nearest to them on which a bevel can be read.");

  static constexpr auto kTexts =
      MakeNamedTable(Common::DrawingElement(), kClear, kAppendText, kListTexts, Common::StorageText(),
                     Common::StorageLibNum(), kDeleteAllStorageIDs, Common::SetBinaryData(),
                     Common::GetBinaryData(), Common::ReSync(), kConvert);
  /// Those of a list that can have any length.
  static constexpr auto kOpenList = kTexts.WithAfter("Clear", kInsertBefore)
                                        .WithAfter("InsertBefore", kRemoveText)
                                        .WithAfter("RemoveText", kListCount);
};

}  // namespace quenzel7
