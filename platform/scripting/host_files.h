#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/scripting/built_in_files.h"
#include "platform/scripting/files.h"

namespace quenzel7::scripting {

/// The embedded default: the files of the machine, by Windows-style paths (as `PathNames` reads them), each
/// name of which is looked for exactly and then without regard to the case of letters.
///
/// What is not on the disk, but has the folder and the name of a built-in file at its end, in whatever case,
/// is read from there. A file on the disk always wins.
class HostFiles final : public Files {
 public:
  /// `builtIn` has to live as long as the object.
  explicit HostFiles(std::span<const BuiltInFile> builtIn = {}) : builtIn_(builtIn) {}

  /// The lines are those of `LineStream`. Errors, naming the path as it was given and as it was looked for:
  /// 53 when there is no such file, 76 when a folder of it is not there or it has a drive letter, 70 when it
  /// is no ordinary file or may not be read. Reading from it: error 62 when no line is left, 57 when the disk
  /// fails.
  TextStreamRef OpenTextFile(const std::string& path) override;

 private:
  const BuiltInFile* FindBuiltIn(const std::vector<std::string>& names) const;

  std::span<const BuiltInFile> builtIn_;
};

}  // namespace quenzel7::scripting
