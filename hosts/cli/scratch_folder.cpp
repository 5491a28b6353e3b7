#include "hosts/cli/scratch_folder.h"

#include <cerrno>
#include <cstdlib>

#include "hosts/cli/user_error.h"
#include "platform/files/file_error.h"

namespace quenzel7::cli {

ScratchFolder::ScratchFolder() {
  const auto raise = [](const std::string& reason) {
    throw UserError("folder for temporary files cannot be made: " + reason);
  };
  std::error_code error;
  std::string path = (std::filesystem::temp_directory_path(error) / "quenzel7-XXXXXX").string();
  if (error) raise(error.message());
  if (!mkdtemp(path.data())) raise(files::SystemMessage(errno));
  path_ = path;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace quenzel7::cli
