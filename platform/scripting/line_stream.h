#pragma once

#include <istream>
#include <memory>
#include <string>

#include "platform/scripting/files.h"

namespace quenzel7::scripting {

/// The lines of a text in UTF-8. A byte order mark at its start is dropped. Lines end with CR LF, LF or CR;
/// the last one may lack its end, and an end behind which nothing comes begins no further line.
class LineStream final : public TextStream {
 public:
  /// Reads `input`, which stands at its start and can be set back to it; errors call the text `name`.
  LineStream(std::unique_ptr<std::istream> input, std::string name);

  /// Error 62 when there is none left, 57 when the input cannot be read on.
  std::string ReadLine() override;
  /// Error 57 when the input cannot be read on.
  bool AtEndOfStream() override;

 private:
  /// The next byte, which stays the next one; that of the traits for the end behind the last.
  std::istream::int_type Peek();

  std::unique_ptr<std::istream> input_;
  std::string name_;
};

}  // namespace quenzel7::scripting
