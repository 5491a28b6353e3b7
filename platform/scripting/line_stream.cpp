#include "platform/scripting/line_stream.h"

#include <string_view>
#include <utility>

#include "platform/automation/automation_error.h"

namespace quenzel7::scripting {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr auto kEnd = std::istream::traits_type::eof();

void DropByteOrderMark(std::istream& input) {
  std::string start(kByteOrderMark.size(), '\0');
  input.read(start.data(), static_cast<std::streamsize>(start.size()));
  if (start == kByteOrderMark) return;
  // Also when the text is shorter than the mark. An input that cannot be read fails once more when it is.
  input.clear();
  input.seekg(0);
}

}  // namespace

LineStream::LineStream(std::unique_ptr<std::istream> input, std::string name)
    : input_(std::move(input)), name_(std::move(name)) {
  DropByteOrderMark(*input_);
}

std::istream::int_type LineStream::Peek() {
  const auto next = input_->peek();
  if (input_->bad()) {
    throw AutomationError(ErrorNumber::DeviceInputOutput, name_ + ": the file cannot be read on");
  }
  return next;
}

bool LineStream::AtEndOfStream() { return Peek() == kEnd; }

std::string LineStream::ReadLine() {
  if (AtEndOfStream()) {
    throw AutomationError(ErrorNumber::InputPastEndOfFile, name_ + ": there is no line left to read");
  }
  std::string line;
  for (auto next = Peek(); next != kEnd; next = Peek()) {
    input_->ignore();
    if (next == '\n') break;
    if (next == '\r') {
      if (Peek() == '\n') input_->ignore();
      break;
    }
    line += static_cast<char>(next);
  }
  return line;
}

}  // namespace quenzel7::scripting
