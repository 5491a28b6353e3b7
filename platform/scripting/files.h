#pragma once

#include <memory>
#include <string>

namespace quenzel7::scripting {

/// A text file that is read line by line.
class TextStream {
 public:
  virtual ~TextStream() = default;

  /// The next line (UTF-8) without its end; error 62 when there is none left.
  virtual std::string ReadLine() = 0;
  /// Whether no line is left.
  virtual bool AtEndOfStream() = 0;
};

using TextStreamRef = std::shared_ptr<TextStream>;

/// The files that the library reads, by the names that projects have for them.
class Files {
 public:
  virtual ~Files() = default;

  /// Opens a text file for reading. Errors: 53 when there is no such file, 76 when its folder is not there.
  virtual TextStreamRef OpenTextFile(const std::string& path) = 0;
};

}  // namespace quenzel7::scripting
