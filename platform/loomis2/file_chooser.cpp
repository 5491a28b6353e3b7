#include "platform/loomis2/file_chooser.h"

namespace quenzel7::loomis2 {

const std::vector<FileType>& PictureFileTypes() {
  static const std::vector<FileType> types{
      {"All Picture Files", "*.bmp;*.gif;*.jpg;*.wmf;*.emf;*.ico;*.cur"},
      {"Bitmaps (*.bmp)", "*.bmp"},
      {"GIF Images (*.gif)", "*.gif"},
      {"JPEG Images (*.jpg)", "*.jpg"},
      {"Metafiles (*.wmf;*.emf)", "*.wmf;*.emf"},
      {"Icons (*.ico;*.cur)", "*.ico;*.cur"},
  };
  return types;
}

std::string PreparedFileChooser::Choose(const std::vector<FileType>&) {
  if (paths_.empty()) return {};
  std::string path = std::move(paths_.front());
  paths_.erase(paths_.begin());
  return path;
}

}  // namespace quenzel7::loomis2
