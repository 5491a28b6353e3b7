#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/corvane1/font_service.h"
#include "platform/corvane1/string_library.h"
#include "platform/corvane1/text_painter.h"
#include "platform/fennick1/operand.h"
#include "platform/gdi/surface.h"
#include "shapes/frame.h"
#include "shapes/text.h"
#include "tests/support/saved_shape.h"

/// What the tests of the elements that bear a text share: fonts and strings that are counted by hand, what an
/// element paints without its being asked for it, and elements in a project.
namespace quenzel7::test {

using TextBearingTypes = ::testing::Types<clsText, clsFrame>;

/// Takes down what a service is asked; may raise.
using ServiceNote = std::function<void(const std::string&)>;

/// Fonts in which a text can be measured by counting: in font n each character is n + 1 pixels wide and each
/// line 2 (n + 1) high. The default font is 4.
class CountingFonts final : public corvane1::FontService {
 public:
  static constexpr Long kDefault = 4;

  ServiceNote note;

  Long GetDefaultFontNumber() override {
    Note("default font");
    return kDefault;
  }
  Long GetDefaultDescriptionFontNumber() override { return 1; }
  Long GetCharHeight(Long fontNumber) override {
    Note("height of font " + std::to_string(fontNumber));
    return HeightIn(fontNumber);
  }
  std::array<Long, 256> GetCharWidths(Long fontNumber) override {
    Note("widths of font " + std::to_string(fontNumber));
    std::array<Long, 256> widths;
    widths.fill(fontNumber + 1);
    return widths;
  }
  corvane1::TextExtent GetTextRect(const std::string& text, Long fontNumber) override {
    Note("measure " + text + " in font " + std::to_string(fontNumber));
    return corvane1::ExtentOfLines(text, HeightIn(fontNumber), [&](std::string_view line) {
      return static_cast<Long>(line.size()) * (fontNumber + 1);
    });
  }
  std::string GetFontName(Long fontNumber) override {
    Note("name of font " + std::to_string(fontNumber));
    return "no. " + std::to_string(fontNumber);
  }

 private:
  static Long HeightIn(Long fontNumber) { return 2 * (fontNumber + 1); }
  void Note(const std::string& call) const {
    if (note) note(call);
  }
};

/// A string library in memory, with 2 as its current language to begin with.
class HeldStrings final : public corvane1::StringLibrary {
 public:
  ServiceNote note;
  Long languages = 0;
  Long current = 2;
  /// The texts by number and language.
  std::map<std::pair<Long, Long>, corvane1::LibraryString> texts;

  void Open(const ado::ConnectionRef& project, Long option) override {
    Note(std::string("open strings of ") + (project == ProjectConnection() ? "the project " : "another ") +
         std::to_string(option));
  }
  Long GetCount() override {
    Note("languages?");
    return languages;
  }
  Long Language() override {
    Note("language?");
    return current;
  }
  void Language(Long language) override {
    Note("language " + std::to_string(language));
    current = language;
  }
  corvane1::LibraryString GetString(Long number) override {
    Note("string " + std::to_string(number));
    const auto found = texts.find({number, current});
    return found != texts.end() ? found->second : corvane1::LibraryString{corvane1::kEmptyLibraryString, -1};
  }

 private:
  void Note(const std::string& call) const {
    if (note) note(call);
  }
};

/// Paints nothing, and keeps the texts that it is given.
class KeepingPainter final : public corvane1::TextPainter {
 public:
  explicit KeepingPainter(std::shared_ptr<std::vector<std::string>> painted) : painted_(std::move(painted)) {}

  void DrawText(Long, Long, const std::string& line, gdi::HDC, Long) override { painted_->push_back(line); }
  void DrawTextTransparent(Long, Long, const std::string& line, gdi::HDC, Long) override {
    painted_->push_back(line);
  }
  void DrawStorageText(Long, Long, const std::string& text, gdi::HDC, Long) override {
    painted_->push_back(text);
  }
  void DrawStorageTextTransparent(Long, Long, const std::string& text, gdi::HDC, Long, Long) override {
    painted_->push_back(text);
  }
  corvane1::TextExtent GetTextSize(const std::string&, Long) override { return {}; }

 private:
  std::shared_ptr<std::vector<std::string>> painted_;
};

/// What saving an element with everything writes first, as it is noted.
inline CallLog PutsOfHead(const std::string& type) {
  return {
      "put Type=" + type + ":Long",
      "put Xs=12:Long",
      "put Ys=13:Long",
      "put Dx=140:Long",
      "put Dy=150:Long",
      "put DisplayID=7:Long",
      "put GroupID=11:Long",
      "put Text=one\r\ntwo:String",
      "put ColorBack=16:Long",
      "put ColorFore=17:Long",
      "put ColorBackTouch=18:Long",
      "put ColorForeTouch=19:Long",
      "put ColorHatch=0:Long",
      "put PenStyle=0:Long",
      "put PenWidth=0:Long",
      "put HatchStyle=0:Long",
  };
}

/// What it writes of its style, and of what only variables have.
inline const CallLog kPutsOfStyle = {
    "put FontNumber=5:Long",      "put DescriptionFontNumber=0:Integer",
    "put Alignment=6:Integer",    "put Flat3D=2:Long",
    "put VarType=0:Integer",      "put VarKeyPadEntry=0:Integer",
    "put VarOprndType=0:Integer", "put VarOprndAddr=0:Integer",
    "put GlobalVarID=0:Integer",  "put DefaultDisplay=0:Integer",
};

/// The counting services in the platform of the thread, for as long as a test lasts.
class CountingServices {
 public:
  void Install() {
    Platform::Current().fontService = fonts;
    Platform::Current().stringLibrary = strings;
    Platform::Current().newTextPainter = [painted = painted_] {
      return std::make_shared<KeepingPainter>(painted);
    };
  }

  /// Everything that fonts and strings are asked is noted from now on; an empty function ends it.
  void NoteInto(const ServiceNote& note) { fonts->note = strings->note = note; }

  /// What fonts and strings are asked meanwhile, but for the font of new texts.
  template <class Action>
  CallLog AskedBy(Action action) {
    CallLog log;
    NoteInto([&log](const std::string& call) {
      if (call != "default font") log.push_back(call);
    });
    action();
    NoteInto({});
    return log;
  }

  /// What an element shows, lines parted by '|'. Does not make it fit its text, as reading ActualText does.
  std::string ShownBy(ItfHmiElement& element) {
    painted_->clear();
    const gdi::Surface paper(4, 4);
    element.DrawToPrinter(paper.Dc(), "");
    std::string shown;
    for (const std::string& line : *painted_) shown += line + '|';
    if (!shown.empty()) shown.pop_back();
    return shown;
  }

  const std::shared_ptr<CountingFonts> fonts = std::make_shared<CountingFonts>();
  const std::shared_ptr<HeldStrings> strings = std::make_shared<HeldStrings>();

 private:
  std::shared_ptr<std::vector<std::string>> painted_ = std::make_shared<std::vector<std::string>>();
};

/// An element of a class without a project.
template <class Element>
class TextBearing : public ShapeTest<Element> {
 protected:
  void SetUp() override {
    ShapeTest<Element>::SetUp();
    services_.Install();
  }

  /// In a font of 1 x 2 pixels a character, in a flat place of 50 by 20 pixels at (0, 0).
  std::shared_ptr<Element> Small(const std::string& text) {
    auto element = Placed<Element>(0, 0, 50, 20);
    element->Flat3D(Long{0});
    element->FontNumber(0);
    element->Txt(text);
    return element;
  }

  CountingServices services_;
};

/// Operands of bags, each as "type address".
inline std::vector<std::string> OperandsIn(const automation::CollectionRef& bags) {
  std::vector<std::string> found;
  for (Long place = 1; place <= bags->Count(); ++place) {
    fennick1::Operand operand(Platform::Current().operands);
    operand.PropBag(bags->ObjectAt<automation::PropertyBag>(place));
    found.push_back(std::to_string(operand.OperandType()) + " " + std::to_string(operand.OperandAddress()));
  }
  return found;
}

/// Elements of one class in a project file on disk, with the counting services.
template <class Element>
class SavedTextBearing : public SavedShape<Element> {
 protected:
  void SetUp() override {
    SavedShape<Element>::SetUp();
    services_.Install();
  }

  /// What fonts and strings are asked is noted with what is asked of the project.
  void NoteServices() {
    services_.NoteInto([this](const std::string& call) { this->Recorder().Note(call); });
  }

  /// An element in which every field that is kept has a value of its own.
  static std::shared_ptr<Element> Distinct() {
    auto element = std::make_shared<Element>();
    element->GroupID(11);
    element->Xs(12);
    element->Ys(13);
    element->Dx(140);
    element->Dy(150);
    element->ColorBack(16);
    element->ColorFore(17);
    element->ColorBackTouch(18);
    element->ColorForeTouch(19);
    element->Txt("one\r\ntwo");
    element->FontNumber(5);
    element->Alignment(Integer{6});
    element->Flat3D(Long{2});
    element->TouchOprndAddr(22);
    element->VisibleOpAddr(23);
    element->StorageStringType(24);
    element->StorageStringID(25);
    element->TabIndex(26);
    element->OrderIndex(27);
    return element;
  }

  /// Whether the class has an operand that hides it.
  static constexpr bool kHides = std::is_same_v<Element, clsText>;

  CountingServices services_;
};

}  // namespace quenzel7::test
