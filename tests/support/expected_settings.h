#pragma once

#include <algorithm>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/handler_fixture.h"

/// What each class of handlers keeps, written out: names in order, kinds, what a new handler has.
namespace quenzel7::test {

/// One setting.
struct ExpectedSetting {
  std::string name;
  /// Of a new handler, and of one on which everything has a value of its own; both in the kind that is kept.
  automation::Variant initial, other;
  enum Trait {
    kPlain,
    /// Not among what the change key is made of.
    kNotInKey,
    /// The address of the operand whose type stands before it.
    kAddress,
    /// Data without it leave 0.
    kGuarded,
    /// How many entries follow, which data make anew.
    kCount,
    kOfEntry,
    kAddressOfEntry,
    kGuardedOfEntry,
  } trait = kPlain;

  bool IsAddress() const { return trait == kAddress || trait == kAddressOfEntry; }
  bool IsGuarded() const { return trait == kGuarded || trait == kGuardedOfEntry; }
  bool IsOfEntry() const { return trait == kOfEntry || trait == kAddressOfEntry || trait == kGuardedOfEntry; }

  /// What a handler had before it took the others: a third value, where there is one. Entries begin anew.
  automation::Variant Earlier() const {
    if (trait == kCount || IsOfEntry()) return initial;
    if (const Long* number = other.If<Long>()) return *number + 1000;
    return other.IsText() ? automation::Variant("earlier") : initial;
  }
};
using ExpectedSettings = std::vector<ExpectedSetting>;

/// A class of handlers.
struct ExpectedHandler {
  const char* className;
  /// How many texts a new one has, 0 for a class without a list.
  Long texts;
  /// Whether what cannot be read is passed over.
  bool isSkipping;
  /// What the change key is made of.
  enum { kBinaryData, kLongs, kCurrencies } changeKey;
  /// How many operands its settings tell of, with three texts.
  int operands;
  /// Its settings as written, with so many texts.
  std::function<ExpectedSettings(Long texts)> settings;
  /// The setting that is read right after the fourth one instead of in its place; none for most.
  const char* readEarlier = nullptr;

  /// The settings in the order in which they are read.
  ExpectedSettings Read(Long count) const {
    ExpectedSettings read = settings(count);
    if (!readEarlier) return read;
    const auto found = std::find_if(read.begin(), read.end(), [this](const ExpectedSetting& setting) {
      return setting.name == readEarlier;
    });
    std::rotate(read.begin() + 4, found, found + 1);
    return read;
  }

  friend std::ostream& operator<<(std::ostream& out, const ExpectedHandler& handler) {
    return out << handler.className;
  }
};

inline ExpectedSettings Together(std::initializer_list<ExpectedSettings> parts) {
  ExpectedSettings all;
  for (const ExpectedSettings& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

inline ExpectedSettings OfLibrary() {
  return {{"StorageText", Long{0}, Long{-1}, ExpectedSetting::kGuarded},
          {"StorageLibNum", Long{0}, Long{12}, ExpectedSetting::kGuarded}};
}

inline ExpectedSettings OfTextList() {
  return {{"DrawingText_Txt", "Text", "two\r\nlines"},
          {"DrawingText_FontNumber", Long{4}, Long{2}},
          {"DrawingText_ColorFore", Long{6021}, Long{13}},
          {"DrawingText_ColorBack", Long{6020}, Long{14}}};
}

/// The list, each entry with the colours of new ones and the operands of a range, where it has these.
inline ExpectedSettings OfEntries(Long texts, Long colorFore, Long colorBack, bool hasRange) {
  using S = ExpectedSetting;
  ExpectedSettings list = {{"ListCount", texts, texts, S::kCount}};
  for (Long entry = 1; entry <= texts; ++entry) {
    const std::string number = std::to_string(entry);
    const Long own = 100 * entry;
    list.push_back({"Txt_" + number, "", "text " + number, S::kOfEntry});
    list.push_back({"ColorFore_" + number, colorFore, own + 1, S::kOfEntry});
    list.push_back({"ColorBack_" + number, colorBack, own + 2, S::kOfEntry});
    if (hasRange) {
      list.push_back({"FromOpType_" + number, Long{0}, own + 3, S::kOfEntry});
      list.push_back({"FromOpAddress_" + number, Long{0}, own + 4, S::kAddressOfEntry});
      list.push_back({"ToOpType_" + number, Long{0}, own + 5, S::kOfEntry});
      list.push_back({"ToOpAddress_" + number, Long{0}, own + 6, S::kAddressOfEntry});
    }
    list.push_back({"StorageStringID_" + number, Long{-1}, own + 7, S::kGuardedOfEntry});
    list.push_back({"StorageStringType_" + number, Long{0}, own + 8, S::kGuardedOfEntry});
  }
  return list;
}

inline ExpectedSettings OfNumber() {
  using S = ExpectedSetting;
  return {{"DrawingText_txt", "-99999", "shown"},
          {"DrawingText_FontNumber", Long{4}, Long{2}},
          {"DrawingText_ColorFore", Long{6021}, Long{13}},
          {"LeadingType", Long{0}, Long{2}},
          {"FontNumber", Long{4}, Long{3}},
          {"ColorFore", Long{6067}, Long{15}},
          {"Format", "99999", "9.99"},
          {"BaseFormat", Long{0}, Long{1}},
          {"Postfix", "", "bar"},
          {"StartWithClearFields", false, true},
          {"UseEntryLimits", false, true},
          {"DoLinearization", false, true},
          {"IsPassword", false, true},
          {"IsUnsignedFormat", false, true},
          {"ArrowsIncrementValue", Long{0}, Long{16}},
          {"EntryLimitMinOpType", Long{0}, Long{101}},
          {"EntryLimitMinOpAddress", Long{0}, Long{102}, S::kAddress},
          {"EntryLimitMaxOpType", Long{0}, Long{103}},
          {"EntryLimitMaxOpAddress", Long{0}, Long{104}, S::kAddress},
          {"LinearMIminOpType", Long{0}, Long{105}},
          {"LinearMIminOpAddress", Long{0}, Long{106}, S::kAddress},
          {"LinearMIMaxOpType", Long{0}, Long{107}},
          {"LinearMImaxOpAddress", Long{0}, Long{108}, S::kAddress},
          {"LinearDminOpType", Long{0}, Long{109}},
          {"LinearDminOpAddress", Long{0}, Long{110}, S::kAddress},
          {"LinearDmaxOpType", Long{0}, Long{111}},
          {"LinearDmaxOpAddress", Long{0}, Long{112}, S::kAddress},
          {"KeyboardType", Long{0}, Long{17}, S::kNotInKey},
          {"Txt_Storage", "", "of the library"},
          {"ColorFore_Storage", Long{6021}, Long{18}},
          {"ColorBack_Storage", Long{6020}, Long{19}},
          {"StorageStringID", Long{-1}, Long{20}},
          {"StorageStringType", Long{0}, Long{21}},
          {"StorageFont", Long{4}, Long{1}},
          {"StorageText", Long{0}, Long{-1}},
          {"StorageLibNum", Long{0}, Long{12}}};
}

inline ExpectedSettings OfDisplayString() {
  return {{"DrawingText_txt", "Text_To_Display", "shown"},
          {"DrawingText_FontNumber", Long{4}, Long{2}},
          {"DrawingText_ColorFore", Long{6071}, Long{13}},
          {"StartVectorOpType", Long{0}, Long{101}},
          {"StartVectorOpAddress", Long{0}, Long{102}, ExpectedSetting::kAddress},
          {"StringPattern", "Text_To_Display", "pattern"},
          {"VectorLength", Long{15}, Long{16}},
          {"KeyboardsLanguage", Long{0}, Long{3}},
          {"FontNumber", Long{4}, Long{3}},
          {"ColorFore", Long{6071}, Long{17}}};
}

inline ExpectedSettings OfBar() {
  using S = ExpectedSetting;
  return {{"BargraphType", Long{3}, Long{1}},
          {"Frame", true, false},
          {"MinOpType", Long{0}, Long{101}},
          {"MinOpAddress", Long{0}, Long{102}, S::kAddress},
          {"MaxOpType", Long{0}, Long{103}},
          {"MaxOpAddress", Long{0}, Long{104}, S::kAddress},
          {"ColorFore", Long{3}, Long{13}, S::kNotInKey}};
}

/// All classes. Colours as KeyNumbers tells them, fonts as CountingFonts.
inline const std::vector<ExpectedHandler>& ExpectedHandlers() {
  using H = ExpectedHandler;
  static const std::vector<ExpectedHandler> handlers = {
      {"clsVarBinaryText", 2, false, H::kBinaryData, 0,
       [](Long texts) {
         return Together(
             {OfTextList(), OfEntries(texts, 6061, 6060, false), {{"Switch", false, true}}, OfLibrary()});
       }},
      {"clsVarListText", 1, false, H::kBinaryData, 0,
       [](Long texts) {
         return Together({OfTextList(), OfLibrary(), OfEntries(texts, 6063, 6062, false)});
       },
       "ListCount"},
      {"clsVarNumeric", 0, true, H::kCurrencies, 6, [](Long) { return OfNumber(); }},
      {"clsVarBargraph", 0, false, H::kLongs, 2, [](Long) { return OfBar(); }},
      {"clsVarRangeText", 1, false, H::kLongs, 6,
       [](Long texts) {
         return Together({OfTextList(), OfLibrary(), OfEntries(texts, 6065, 6064, true)});
       }},
      {"clsVarDisplayString", 0, false, H::kBinaryData, 1, [](Long) { return OfDisplayString(); }},
  };
  return handlers;
}

}  // namespace quenzel7::test
