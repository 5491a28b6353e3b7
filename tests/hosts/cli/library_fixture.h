#pragma once

#include <sstream>
#include <string>

#include "hosts/cli/library_texts.h"
#include "platform/corvane1/message_boxes.h"
#include "platform/platform.h"
#include "tests/hosts/cli/cli_project.h"

namespace quenzel7::cli::test {

/// A project with a string library of two languages, whose message boxes are taken down.
class LibraryTest : public CliProjectTest {
 protected:
  void SetUp() override {
    CliProjectTest::SetUp();
    Platform::Current().messageBoxes = std::make_shared<corvane1::CollectedMessageBoxes>(&boxes_);
    OpenedLibrary().SetLanguage(1, "English");
    OpenedLibrary().SetLanguage(2, "Deutsch");
  }

  /// Puts a text into the library; font -1 is none.
  static void SetString(Long number, Long language, const std::string& text, Long font) {
    OpenedLibrary().SetString(number, language, {text, font});
  }

  /// The boxes that were shown since the last call, a line each.
  std::string Boxes() {
    std::string shown = boxes_.str();
    boxes_.str("");
    return shown;
  }

  /// A text of 100 by 20 pixels with further properties, in a page file.
  static std::string Text(const std::string& more) {
    return "{\"class\": \"clsText\", \"Xs\": 5, \"Ys\": 6, \"Dx\": 100, \"Dy\": 20, \"Flat3D\": 0, " + more +
           "}";
  }
  /// A page file of page 1 with these elements.
  static std::string PageOf(const std::string& elements) {
    return "{\"page\": 1, \"panel\": {\"type\": 1, \"width\": 320, \"height\": 240}, \"elements\": [" +
           elements + "]}";
  }

 private:
  std::ostringstream boxes_;
};

}  // namespace quenzel7::cli::test
