#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/corvane1/font_service.h"

namespace quenzel7::test {

/// A font service that measures by a table, 0 x 0 for texts that are not in it, and notes what it is asked.
class FontDouble : public corvane1::FontService {
 public:
  using Log = std::shared_ptr<std::vector<std::string>>;

  explicit FontDouble(Log log) : log_(std::move(log)) {}

  /// The extent that a text has in every font.
  void Measures(const std::string& text, corvane1::TextExtent extent) { extents_[text] = extent; }

  Long GetDefaultFontNumber() override { return 1; }
  Long GetDefaultDescriptionFontNumber() override { return 1; }
  Long GetCharHeight(Long) override { return 8; }
  std::array<Long, 256> GetCharWidths(Long) override { return {}; }
  corvane1::TextExtent GetTextRect(const std::string& text, Long fontNumber) override {
    log_->push_back("measure " + text + " in font " + std::to_string(fontNumber));
    return extents_[text];
  }
  std::string GetFontName(Long fontNumber) override {
    log_->push_back("name of font " + std::to_string(fontNumber));
    return "font " + std::to_string(fontNumber);
  }

 private:
  Log log_;
  std::map<std::string, corvane1::TextExtent> extents_;
};

}  // namespace quenzel7::test
