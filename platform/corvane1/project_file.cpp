#include "platform/corvane1/project_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/corvane1/project_schema.h"

namespace quenzel7::corvane1 {
namespace {

using ado::OpenMode;
using ado::OpenOptions;
using automation::AutomationError;
using automation::ErrorNumber;

namespace fs = std::filesystem;

/// What the engine keeps beside a database file.
constexpr const char* kCompanions[] = {"-journal", "-wal", "-shm"};

std::string About(const std::string& path, const std::string& what) {
  return "project file \"" + path + "\": " + what;
}

[[noreturn]] void Raise(const std::string& path, const std::string& what,
                        ErrorNumber number = ErrorNumber::Database) {
  throw AutomationError(number, About(path, what));
}

/// Has the engine do something with the file; what it raises is told as what could not be done with the file.
template <class Action>
auto WithFile(const std::string& path, const std::string& failure, Action action) {
  try {
    return action();
  } catch (const AutomationError& error) {
    throw error.In(About(path, failure));
  }
}

constexpr const char* kNotOpened = "cannot be opened";
std::string NotUpToDate() { return "cannot be brought to version " + std::to_string(kProjectVersion); }

bool IsKnownVersion(Long version) { return version >= 1 && version <= kProjectVersion; }

/// Refuses what a newer version made, and what no version made.
void RequireKnownVersion(const std::string& path, Long version) {
  if (IsKnownVersion(version)) return;
  Raise(path, "is of project version " + std::to_string(version) + ", but a version from 1 to " +
                  std::to_string(kProjectVersion) + " is expected");
}

/// The beginning of a database file, as its format defines it: every number with its high byte first.
class Header {
 public:
  static constexpr std::size_t kSize = 100;

  explicit Header(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) Raise(path, std::string("cannot be read: ") + std::strerror(errno));
    file.read(bytes_.data(), kSize);
    if (file.gcount() < static_cast<std::streamsize>(kSize)) bytes_.fill(0);
  }

  bool IsDatabase() const {
    constexpr std::string_view kMagic("SQLite format 3\0", 16);
    return std::string_view(bytes_.data(), kMagic.size()) == kMagic;
  }
  /// 1 stands for 65536, which does not fit.
  std::uint64_t PageSize() const { return Number(16, 2) == 1 ? 65536 : Number(16, 2); }
  std::uint64_t PageCount() const { return Number(28, 4); }
  std::uint64_t ApplicationId() const { return Number(68, 4); }

 private:
  std::uint64_t Number(std::size_t at, std::size_t size) const {
    std::uint64_t number = 0;
    for (std::size_t index = at; index < at + size; ++index) {
      number = number << 8 | static_cast<unsigned char>(bytes_[index]);
    }
    return number;
  }

  std::array<char, kSize> bytes_{};
};

/// Looks at the bytes of the file before the engine gets it.
void CheckHeader(const std::string& path) {
  const Header header(path);
  if (!header.IsDatabase()) Raise(path, "is not a project: it does not begin as a database file does");
  if (header.ApplicationId() != static_cast<std::uint64_t>(kProjectApplicationId)) {
    Raise(path, "is not a project: it is a database of another program");
  }
  // With a log beside it the file may be shorter than it is going to be.
  const std::uint64_t whole = header.PageSize() * header.PageCount();
  std::error_code error;
  const std::uint64_t found = fs::file_size(path, error);
  if (found < whole && !fs::exists(path + "-wal", error)) {
    Raise(path, "is damaged: it has " + std::to_string(found) + " of " + std::to_string(whole) + " bytes");
  }
}

/// Has the engine look at every page, without leaving a trace.
void CheckContents(const std::string& path, OpenOptions options) {
  options.mode = OpenMode::Inspect;
  std::string found;
  std::string missing;
  std::string inTheWay;
  Long version = 0;
  WithFile(path, kNotOpened, [&] {
    const ado::ConnectionRef connection = OpenSqlite(path, options);
    found = automation::To<std::string>(connection->Execute("PRAGMA quick_check(1)")->Get("quick_check"));
    if (found == "ok") {
      version = ProjectVersionOf(*connection);
      missing = MissingFromProject(*connection, version);
      inTheWay = InTheWayOfLaterTables(*connection, version);
    }
    connection->Close();
  });
  if (found != "ok") Raise(path, "is damaged: " + found);
  // As the engine tells it: the beginning of the file may not know yet what the log says.
  RequireKnownVersion(path, version);
  if (!missing.empty()) Raise(path, "lacks " + missing);
  if (!inTheWay.empty()) Raise(path, NotUpToDate() + ": " + inTheWay + " is in the way");
}

void RemoveWithCompanions(const std::string& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
  for (const char* companion : kCompanions) fs::remove(path + companion, ignored);
}

/// Makes a new project and gives it the path when it is complete.
void Create(const std::string& path, OpenOptions options) {
  const std::string creating = path + ".creating";
  RemoveWithCompanions(creating);
  try {
    options.mode = OpenMode::Create;
    const ado::ConnectionRef connection = OpenSqlite(creating, options);
    ado::Transaction transaction(*connection);
    for (const std::string& statement : ProjectSchemaStatements()) connection->Execute(statement);
    transaction.Commit();
    // Closing would move the log into the file too, but without telling when that failed.
    connection->Execute("PRAGMA wal_checkpoint(TRUNCATE)");
    connection->Close();
    fs::rename(creating, path);
  } catch (const AutomationError& error) {
    RemoveWithCompanions(creating);
    throw error.In(About(path, "cannot be made"));
  } catch (const fs::filesystem_error& error) {
    RemoveWithCompanions(creating);
    Raise(path, "cannot be made: " + error.code().message());
  }
}

enum class Found { File, Nothing };

/// What the path leads to, as far as it may become a project.
Found Look(const std::string& path, ProjectMode mode) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  const bool mayCreate = mode == ProjectMode::Create;
  if (status.type() == fs::file_type::not_found) {
    const fs::path folder = fs::path(path).parent_path();
    if (!mayCreate) Raise(path, "there is no such file", ErrorNumber::PathNotFound);
    if (!folder.empty() && !fs::is_directory(folder, error)) {
      Raise(path, "there is no such folder", ErrorNumber::PathNotFound);
    }
    return Found::Nothing;
  }
  if (status.type() == fs::file_type::none) Raise(path, "cannot be read: " + error.message());
  if (status.type() == fs::file_type::directory) Raise(path, "is a folder, not a project");
  if (status.type() != fs::file_type::regular) Raise(path, "is not a file that could be a project");
  // Programs that let the user choose a file may make it, empty.
  return mayCreate && fs::file_size(path, error) == 0 ? Found::Nothing : Found::File;
}

/// Whether this user can write the file, and beside it the log that writing takes.
bool IsWritable(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 &&
         faccessat(AT_FDCWD, folder.empty() ? "." : folder.c_str(), W_OK, AT_EACCESS) == 0;
}

/// A project that cannot be written is read as it lies there: no log can be kept, and none is needed.
OpenMode HowToOpen(const std::string& path, ProjectMode mode) {
  if (mode == ProjectMode::ReadOnly) return IsWritable(path) ? OpenMode::ReadOnly : OpenMode::Inspect;
  if (!IsWritable(path)) Raise(path, std::string("cannot be written: ") + std::strerror(errno));
  return OpenMode::ReadWrite;
}

/// Adds to a project of an older version what came later. Gives the version that it found.
Long BringUpToDate(ado::Connection& connection) {
  // A project that needs nothing is opened while another connection writes.
  if (ProjectVersionOf(connection) == kProjectVersion) return kProjectVersion;
  ado::Transaction transaction(connection);
  // Whoever wrote until now may have changed it.
  const Long version = ProjectVersionOf(connection);
  if (IsKnownVersion(version)) {
    for (const std::string& statement : ProjectUpgradeStatements(version)) connection.Execute(statement);
  }
  transaction.Commit();
  return version;
}

/// Lets a connection that may not write read a project of an older version. Gives the version that it found.
Long StandInForWhatCameLater(ado::Connection& connection) {
  const Long version = ProjectVersionOf(connection);
  // The views are the connection's own and never reach the file.
  connection.Execute("PRAGMA query_only=OFF");
  for (const std::string& statement : ProjectStandInStatements(version)) connection.Execute(statement);
  connection.Execute("PRAGMA query_only=ON");
  return version;
}

}  // namespace

ado::SqliteConnectionRef OpenProject(const std::string& path, ProjectMode mode, const OpenOptions& options) {
  if (Look(path, mode) == Found::Nothing) {
    Create(path, options);
  } else {
    CheckHeader(path);
    CheckContents(path, options);
  }
  OpenOptions open = options;
  open.mode = HowToOpen(path, mode);
  ado::SqliteConnectionRef connection = WithFile(path, kNotOpened, [&] { return OpenSqlite(path, open); });
  // Since the file was looked at, it may have become another connection's work.
  const Long version = open.mode == OpenMode::ReadWrite
                           ? WithFile(path, NotUpToDate(), [&] { return BringUpToDate(*connection); })
                           : WithFile(path, kNotOpened, [&] { return StandInForWhatCameLater(*connection); });
  RequireKnownVersion(path, version);
  return connection;
}

}  // namespace quenzel7::corvane1
