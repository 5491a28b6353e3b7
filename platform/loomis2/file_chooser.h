#pragma once

#include <string>
#include <vector>

namespace quenzel7::loomis2 {

/// One line of the list from which a user picks what files to see: its text, and the files by their endings,
/// "*.bmp;*.gif".
struct FileType {
  std::string text;
  std::string patterns;

  friend bool operator==(const FileType&, const FileType&) = default;
};

/// The types of picture files in the order in which they are offered, the one that takes them all first.
const std::vector<FileType>& PictureFileTypes();

/// Lets the user choose a file. Hosts bring their own, with a window.
class FileChooser {
 public:
  virtual ~FileChooser() = default;

  /// The path of the file that was chosen among those types; empty when none was.
  virtual std::string Choose(const std::vector<FileType>& types) = 0;
};

/// The embedded default: gives the paths that it was told to give, each once and in that order, and none
/// when there is none left. The types play no part.
class PreparedFileChooser final : public FileChooser {
 public:
  /// Has a path given after those that are still to be given.
  void Prepare(const std::string& path) { paths_.push_back(path); }
  /// The path that is given next; empty when there is none.
  std::string Next() const { return paths_.empty() ? std::string() : paths_.front(); }
  /// Forgets the paths that are still to be given.
  void Clear() { paths_.clear(); }
  std::string Choose(const std::vector<FileType>& types) override;

 private:
  std::vector<std::string> paths_;
};

}  // namespace quenzel7::loomis2
