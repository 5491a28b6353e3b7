#include "hosts/cli/json_document.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "hosts/cli/user_error.h"

namespace quenzel7::cli {
namespace {

/// Builds the tree without dropping keys that come twice.
class TreeBuilder final : public nlohmann::json_sax<Json> {
 public:
  bool null() override { return Add(nullptr); }
  bool boolean(bool value) override { return Add(value); }
  bool number_integer(number_integer_t value) override { return Add(value); }
  bool number_unsigned(number_unsigned_t value) override { return Add(value); }
  bool number_float(number_float_t value, const string_t&) override { return Add(value); }
  bool string(string_t& value) override { return Add(std::move(value)); }
  bool binary(binary_t& value) override { return Add(std::move(value)); }
  bool start_object(std::size_t) override { return Open(Json::object()); }
  bool start_array(std::size_t) override { return Open(Json::array()); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }
  bool key(string_t& value) override {
    key_ = std::move(value);
    return true;
  }
  bool parse_error(std::size_t position, const std::string&,
                   const nlohmann::detail::exception& error) override {
    position_ = position;
    message_ = error.what();
    return false;
  }

  Json& Root() { return root_; }
  /// How many bytes were read when the error was found.
  std::size_t Position() const { return position_; }
  /// The parser's message without its own number and place.
  std::string Message() const {
    const auto start = message_.find("syntax error");
    if (start != std::string::npos) return message_.substr(start);
    const auto bracket = message_.find("] ");
    return bracket == std::string::npos ? message_ : message_.substr(bracket + 2);
  }

 private:
  Json& Place(Json value) {
    if (open_.empty()) {
      root_ = std::move(value);
      return root_;
    }
    Json& parent = *open_.back();
    if (parent.is_array()) {
      parent.push_back(std::move(value));
      return parent.back();
    }
    auto& members = parent.get_ref<Json::object_t&>();
    members.emplace_back(std::move(key_), std::move(value));
    return members.back().second;
  }
  bool Add(Json value) {
    Place(std::move(value));
    return true;
  }
  bool Open(Json container) {
    if (open_.size() == kDeepestJson)
      throw UserError("nests more than " + std::to_string(kDeepestJson) + " deep");
    open_.push_back(&Place(std::move(container)));
    return true;
  }
  bool Close() {
    open_.pop_back();
    return true;
  }

  Json root_;
  /// The containers around the current place. Only the innermost one grows, so the pointers stay good.
  std::vector<Json*> open_;
  std::string key_;
  std::size_t position_ = 0;
  std::string message_;
};

[[noreturn]] void RaiseMalformed(std::string_view text, std::size_t offset, const std::string& place,
                                 const std::string& message) {
  const std::string_view before = text.substr(0, std::min(offset, text.size()));
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const auto lineStart = before.rfind('\n') + 1;
  const auto isFirstByte = [](char letter) { return (static_cast<unsigned char>(letter) & 0xC0) != 0x80; };
  const std::string_view ofLine = before.substr(lineStart);
  const auto column = std::count_if(ofLine.begin(), ofLine.end(), isFirstByte) + 1;
  throw UserError(place + ", line " + std::to_string(line) + ", column " + std::to_string(column) +
                  ": malformed JSON: " + message);
}

}  // namespace

Json ParseJson(std::string_view text, const std::string& place) {
  // The parser takes a null byte for the end of the text.
  if (const auto null = text.find('\0'); null != std::string_view::npos) {
    RaiseMalformed(text, null, place, "a null byte");
  }
  TreeBuilder builder;
  if (!AtPlace(place, [&] { return Json::sax_parse(text, &builder); })) {
    RaiseMalformed(text, builder.Position() == 0 ? 0 : builder.Position() - 1, place, builder.Message());
  }
  return std::move(builder.Root());
}

std::string Shown(const Json& value) {
  constexpr std::size_t kLongest = 60;
  std::string text = value.dump();
  if (text.size() <= kLongest) return text;
  std::size_t end = kLongest;
  // Not in the middle of a character.
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return text.substr(0, end) + "...";
}

}  // namespace quenzel7::cli
