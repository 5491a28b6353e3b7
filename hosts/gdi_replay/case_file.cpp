#include "hosts/gdi_replay/case_file.h"

#include <cctype>
#include <charconv>
#include <fstream>
#include <limits>
#include <map>
#include <sstream>

namespace quenzel7::gdi_replay {
namespace {

std::optional<std::int64_t> ParseInteger(const char* begin, const char* end, int base) {
  std::int64_t value = 0;
  const auto [stop, error] = std::from_chars(begin, end, value, base);
  if (error != std::errc() || stop != end) return std::nullopt;
  return value;
}

std::optional<gdi::COLORREF> ParseColor(const std::string& digits) {
  if (digits.size() != 6) return std::nullopt;
  const auto value = ParseInteger(digits.data(), digits.data() + digits.size(), 16);
  if (!value || *value < 0) return std::nullopt;
  return static_cast<gdi::COLORREF>(*value);
}

class Reader {
 public:
  explicit Reader(const std::filesystem::path& file) : file_(file), stream_(file) {
    if (!stream_) throw FormatError(file_, 0, "cannot be read");
  }

  std::vector<Case> Cases() {
    std::vector<Case> cases;
    while (Next()) {
      if (words_[0] != "case") Fail("\"case\" expected, found \"" + words_[0] + "\"");
      cases.push_back(ReadCase());
    }
    return cases;
  }

 private:
  [[noreturn]] void Fail(const std::string& message) const { throw FormatError(file_, line_, message); }

  /// Goes to the next line that means something; false at the end.
  bool Next() {
    std::string text;
    while (std::getline(stream_, text)) {
      ++line_;
      if (!text.empty() && text[0] == '#') {
        comment_ = text.substr(
            text.find_first_not_of("# ") == std::string::npos ? text.size() : text.find_first_not_of("# "));
        continue;
      }
      std::istringstream parts(text);
      words_.clear();
      for (std::string word; parts >> word;) words_.push_back(word);
      if (!words_.empty()) return true;
    }
    return false;
  }

  void NeedNext(const std::string& inside) {
    if (!Next()) Fail("file ends inside " + inside);
  }

  Case ReadCase() {
    Case result;
    const bool isQuirk = words_.size() == 3 && words_[2] == "quirk";
    if (words_.size() != 2 && !isQuirk) Fail("\"case NAME\" or \"case NAME quirk\" expected");
    result.name = words_[1];
    result.isQuirk = isQuirk;
    comment_.clear();
    for (NeedNext("case " + result.name); words_[0] != "endcase"; NeedNext("case " + result.name)) {
      if (result.steps.empty()) result.comment = comment_;
      AddStep(result);
    }
    if (!result.steps.empty()) CheckComplete(result.steps.back());
    return result;
  }

  void AddStep(Case& to) {
    Step* last = to.steps.empty() ? nullptr : &to.steps.back();
    if (words_[0] == "result") {
      if (last == nullptr || last->words[0] != "query" || !last->result.empty())
        Fail("result without a query");
      last->result.assign(words_.begin() + 1, words_.end());
    } else if (words_[0] == "pixels") {
      const bool hasPlace = last != nullptr && !last->picture && (last->words[0] == "check" || IsMap(*last));
      if (!hasPlace) Fail("pixels without a check or a map");
      last->picture = ReadPicture();
    } else {
      if (last != nullptr) CheckComplete(*last);
      to.steps.push_back({line_, words_, {}, std::nullopt});
      return;
    }
  }

  static bool IsMap(const Step& step) { return step.result == std::vector<std::string>{"map"}; }

  void CheckComplete(const Step& step) const {
    if (step.words[0] == "query" && step.result.empty())
      throw FormatError(file_, step.line, "query without result");
    const bool needsPicture = step.words[0] == "check" || IsMap(step);
    if (needsPicture && !step.picture) throw FormatError(file_, step.line, "no pixels follow");
  }

  std::int32_t Size(std::size_t word) const {
    const auto value = word < words_.size() ? ParseNumber(words_[word]) : std::nullopt;
    if (!value || *value < 1 || *value > 4096) Fail("\"pixels W H\" expected, each 1 to 4096");
    return *value;
  }

  Picture ReadPicture() {
    Picture picture{Size(1), Size(2), {}};
    std::map<std::string, gdi::COLORREF> palette;
    const auto width = static_cast<std::size_t>(picture.width),
               height = static_cast<std::size_t>(picture.height);
    for (NeedNext("pixels"); words_[0] != "end"; NeedNext("pixels")) {
      if (words_[0] == "palette") {
        ReadPalette(palette);
      } else if (words_[0][0] == '=') {
        RepeatRow(picture);
      } else {
        ReadRow(palette, picture);
      }
      if (picture.colors.size() > width * height) Fail("more than " + std::to_string(height) + " rows");
    }
    if (picture.colors.size() != width * height) {
      Fail(std::to_string(picture.colors.size() / width) + " rows, expected " + std::to_string(height));
    }
    return picture;
  }

  void ReadPalette(std::map<std::string, gdi::COLORREF>& palette) const {
    for (std::size_t i = 1; i < words_.size(); i += 2) {
      const auto color = i + 1 < words_.size() ? ParseColor(words_[i + 1]) : std::nullopt;
      if (words_[i].size() != 1 || !color) Fail("palette needs pairs of a letter and six digits");
      palette[words_[i]] = *color;
    }
  }

  void RepeatRow(Picture& picture) const {
    const auto width = static_cast<std::size_t>(picture.width);
    const auto count = ParseNumber(words_[0].substr(1));
    const bool isUsable = count && *count >= 1 && *count <= picture.height && picture.colors.size() >= width;
    if (!isUsable) Fail("\"" + words_[0] + "\" repeats no row");
    for (std::int32_t i = 0; i < *count; ++i) {
      const std::vector<gdi::COLORREF> row(picture.colors.end() - picture.width, picture.colors.end());
      picture.colors.insert(picture.colors.end(), row.begin(), row.end());
    }
  }

  void ReadRow(const std::map<std::string, gdi::COLORREF>& palette, Picture& picture) const {
    std::vector<gdi::COLORREF> row;
    for (const std::string& run : words_) {
      const std::size_t star = run.find('*');
      const auto count = star == std::string::npos ? 1 : ParseNumber(run.substr(0, star));
      const std::string name = star == std::string::npos ? run : run.substr(star + 1);
      const auto known = palette.find(name);
      const auto color = known != palette.end() ? known->second : ParseColor(name);
      if (!count || *count < 1 || *count > picture.width || !color)
        Fail("\"" + run + "\" is not a run of pixels");
      row.insert(row.end(), static_cast<std::size_t>(*count), *color);
    }
    if (row.size() != static_cast<std::size_t>(picture.width)) {
      Fail("row is " + std::to_string(row.size()) + " pixels wide, expected " +
           std::to_string(picture.width));
    }
    picture.colors.insert(picture.colors.end(), row.begin(), row.end());
  }

  std::filesystem::path file_;
  std::ifstream stream_;
  int line_ = 0;
  std::vector<std::string> words_;
  std::string comment_;
};

}  // namespace

FormatError::FormatError(const std::filesystem::path& file, int line, const std::string& message)
    : std::runtime_error(file.filename().string() + ":" + std::to_string(line) + ": " + message) {}

std::vector<Case> ReadCases(const std::filesystem::path& file) { return Reader(file).Cases(); }

std::optional<std::int32_t> ParseNumber(const std::string& word) {
  const bool isHexadecimal = word.starts_with("0x");
  const char* const begin = word.data() + (isHexadecimal ? 2 : 0);
  if (isHexadecimal && word[2] == '-') return std::nullopt;
  const auto value = ParseInteger(begin, word.data() + word.size(), isHexadecimal ? 16 : 10);
  const bool fits = value && *value >= std::numeric_limits<std::int32_t>::min() &&
                    *value <= std::numeric_limits<std::uint32_t>::max();
  if (!fits) return std::nullopt;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(*value));
}

}  // namespace quenzel7::gdi_replay
