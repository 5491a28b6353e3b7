#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "platform/ado/connection.h"
#include "platform/automation/types.h"
#include "platform/corvane1/project_database.h"

namespace quenzel7::corvane1 {

/// The defaults of new elements, as texts under a section and a key.
class Settings {
 public:
  virtual ~Settings() = default;

  /// The text under section and key, or the fall-back when there is none.
  virtual std::string GetSetting(Long section, Long key, const std::string& fallback) = 0;
};

/// The embedded default. A setting is looked for in the project's table Settings, then in the settings that
/// were read from files or set by the host, and is else the fall-back.
class LayeredSettings final : public Settings {
 public:
  /// The project's settings are read from `projectDatabase`, once for every project that is opened.
  explicit LayeredSettings(std::shared_ptr<HeldProjectDatabase> projectDatabase);

  /// Errors, whichever setting is asked for, until the project is put right: those of the database, and those
  /// of a row of the project's table that is no setting, whose place they name: 94 where section, key or text
  /// is Null, 13 where section or key is no number or the text is a block of bytes, 6 where a number does not
  /// fit 32 bits.
  std::string GetSetting(Long section, Long key, const std::string& fallback) override;

  /// Sets a text for all projects.
  void Set(Long section, Long key, const std::string& text);
  /// Keeps a text in the open project's table Settings. Errors of the database; 91 when no project is open.
  void SetInProject(Long section, Long key, const std::string& text);

  /// Reads settings for all projects: lines "key = text" below lines "[section]"; empty lines and lines that
  /// begin with # or ; mean nothing. Error 76 when the file cannot be read, error 380 naming file and line
  /// when a line is none of these; nothing is taken over then.
  void ReadFile(const std::string& path);

 private:
  using Texts = std::unordered_map<std::uint64_t, std::string>;

  static std::uint64_t Place(Long section, Long key);
  const Texts& ProjectTexts();

  std::shared_ptr<HeldProjectDatabase> projectDatabase_;
  std::weak_ptr<ado::Connection> readFrom_;
  Texts project_;
  Texts common_;
};

}  // namespace quenzel7::corvane1
