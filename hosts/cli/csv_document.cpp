#include "hosts/cli/csv_document.h"

#include "hosts/cli/user_error.h"
#include "platform/corvane1/utf8.h"

namespace quenzel7::cli {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
constexpr char32_t kReplacement = 0xFFFD;
constexpr std::string_view kReplacementBytes = "\xEF\xBF\xBD";

class CsvReader {
 public:
  CsvReader(std::string_view text, const std::string& place) : left_(text), place_(place) {}

  std::vector<CsvRecord> Read() {
    std::vector<CsvRecord> records;
    while (!left_.empty()) records.push_back(TakeRecord());
    return records;
  }

  /// Refuses bytes that are no character.
  void RequireUtf8() {
    const std::string_view all = left_;
    while (!left_.empty()) {
      const std::string_view before = left_;
      const char32_t character = corvane1::TakeCharacter(left_);
      const std::string_view bytes = before.substr(0, before.size() - left_.size());
      if (character == kReplacement && bytes != kReplacementBytes) Raise("the text is not UTF-8");
      if (character == U'\n') ++line_;
    }
    left_ = all;
    line_ = 1;
  }

 private:
  CsvRecord TakeRecord() {
    CsvRecord record{line_, {}};
    for (;;) {
      record.fields.push_back(Takes("\"") ? TakeQuoted() : TakePlain());
      if (Takes(",")) continue;
      if (!left_.empty() && !TakesLineEnd())
        Raise("behind a field in quotes there is neither a comma nor the line's end");
      return record;
    }
  }

  std::string TakePlain() {
    std::string field;
    while (!left_.empty() && left_.front() != ',' && !IsLineEnd()) {
      if (left_.front() == '"') Raise("there is a quote in a field that is not in quotes");
      field += left_.front();
      left_.remove_prefix(1);
    }
    return field;
  }

  std::string TakeQuoted() {
    const std::size_t begin = line_;
    std::string field;
    for (;;) {
      if (left_.empty()) {
        line_ = begin;
        Raise("the field in quotes that begins here does not end");
      }
      if (Takes("\"\"")) {
        field += '"';
        continue;
      }
      if (Takes("\"")) return field;
      if (left_.front() == '\n') ++line_;
      field += left_.front();
      left_.remove_prefix(1);
    }
  }

  bool IsLineEnd() const { return left_.substr(0, 1) == "\n" || left_.substr(0, 2) == kLineEnd; }
  bool TakesLineEnd() {
    if (!Takes("\n") && !Takes(kLineEnd)) return false;
    ++line_;
    return true;
  }
  bool Takes(std::string_view text) {
    if (left_.substr(0, text.size()) != text) return false;
    left_.remove_prefix(text.size());
    return true;
  }

  [[noreturn]] void Raise(const char* reason) const {
    throw UserError(LineOf(place_, line_) + ": " + reason);
  }

  std::string_view left_;
  const std::string& place_;
  std::size_t line_ = 1;
};

}  // namespace

std::string LineOf(const std::string& place, std::size_t line) {
  return place + ", line " + std::to_string(line);
}

std::vector<CsvRecord> ReadCsv(std::string_view text, const std::string& place) {
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) text.remove_prefix(kByteOrderMark.size());
  CsvReader reader(text, place);
  reader.RequireUtf8();
  return reader.Read();
}

std::string CsvLine(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) line += ',';
    if (field.find_first_of(",\"\r\n") == std::string::npos) {
      line += field;
      continue;
    }
    line += '"';
    for (const char letter : field) {
      if (letter == '"') line += '"';
      line += letter;
    }
    line += '"';
  }
  return line += kLineEnd;
}

}  // namespace quenzel7::cli
