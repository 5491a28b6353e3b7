#include "platform/corvane1/project_file.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/corvane1/project_schema.h"
#include "tests/platform/ado/at_statement.h"
#include "tests/platform/ado/failing_vfs.h"
#include "tests/support/older_project.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::corvane1 {
namespace {

namespace fs = std::filesystem;

using automation::AutomationError;
using automation::To;
using automation::Variant;
using test::Raised;
using test::RaisedBy;

constexpr Long kDatabase = -2147467259;
constexpr Long kPathNotFound = 76;
constexpr ProjectMode kModes[] = {ProjectMode::Open, ProjectMode::Create, ProjectMode::ReadOnly};
constexpr std::size_t kPage = 4096;

std::string Bytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Another user than the one who may do everything, for as long as it lives.
class OrdinaryUser {
 public:
  OrdinaryUser() : before_(geteuid()) {
    if (before_ == 0) changed_ = seteuid(65534) == 0;
  }
  ~OrdinaryUser() {
    if (changed_ && seteuid(before_) != 0) std::abort();
  }

 private:
  uid_t before_;
  bool changed_ = false;
};

class ProjectFileTest : public ::testing::Test {
 protected:
  std::string Path() const { return folder_.File("panel.qz7"); }
  fs::path Folder() const { return fs::path(Path()).parent_path(); }

  /// A project with some rows, closed.
  void MakeProject() {
    const auto project = OpenProject(Path(), ProjectMode::Create);
    for (int row = 0; row < 200; ++row) {
      project->Execute("INSERT INTO HMI_Elements(Xs,Text) VALUES(" + std::to_string(row) + ",'" +
                       std::string(100, 'x') + "')");
    }
    project->Close();
  }
  /// The same as an older version made it.
  void MakeVersion(Long version) {
    MakeProject();
    const auto project = ado::OpenSqlite(Path());
    test::MakeOlder(*project, version);
    project->Close();
  }
  static Long Count(ado::Connection& project, const std::string& table) {
    return To<Long>(project.Execute("SELECT COUNT(*) AS N FROM " + table)->Get("N"));
  }
  /// Writes bytes of the file over.
  void Overwrite(std::size_t at, const std::string& bytes) {
    std::fstream file(Path(), std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(static_cast<std::streamoff>(at));
    file << bytes;
  }
  /// Everything in the folder: names and contents.
  std::map<std::string, std::string> Snapshot() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(Folder())) {
      files[entry.path().filename()] = entry.is_regular_file() ? Bytes(entry.path()) : "";
    }
    return files;
  }
  static Raised RefusalOf(const std::string& path, ProjectMode mode) {
    return test::RaisedBy([&] { OpenProject(path, mode); });
  }
  /// Every mode refuses the file in these words and leaves everything as it was.
  void ExpectRefused(const std::string& what, Long number = kDatabase) {
    const auto before = Snapshot();
    for (const ProjectMode mode : kModes) {
      EXPECT_EQ(RefusalOf(Path(), mode), (test::Raised{number, "project file \"" + Path() + "\": " + what}));
      EXPECT_EQ(Snapshot(), before);
    }
  }
  /// Every mode refuses the file with words that begin so and leaves everything as it was.
  void ExpectRefusedBeginning(const std::string& what) {
    const auto before = Snapshot();
    const std::string beginning = "project file \"" + Path() + "\": " + what;
    for (const ProjectMode mode : kModes) {
      const Raised refusal = RefusalOf(Path(), mode);
      EXPECT_EQ(refusal.number, kDatabase);
      EXPECT_EQ(refusal.description.substr(0, beginning.size()), beginning);
      EXPECT_EQ(Snapshot(), before);
    }
  }

  test::TemporaryFolder folder_;
};

// Making a project.

TEST_F(ProjectFileTest, ANewProjectHasAllTablesAndNoRows) {
  const auto project = OpenProject(Path(), ProjectMode::Create);
  EXPECT_EQ(MissingFromProject(*project), "");
  for (const SchemaTable& table : ProjectTables()) {
    EXPECT_TRUE(project->Execute("SELECT * FROM " + std::string(table.name))->Eof()) << table.name;
  }
}

TEST_F(ProjectFileTest, ANewProjectIsOneFileWhenClosed) {
  OpenProject(Path(), ProjectMode::Create)->Close();
  EXPECT_EQ(Snapshot().size(), 1u);
  EXPECT_EQ(Bytes(Path()).substr(0, 16), std::string("SQLite format 3\0", 16));
  EXPECT_EQ(Bytes(Path()).substr(68, 4), "Qzl7");
  EXPECT_EQ(Bytes(Path()).substr(60, 4), std::string("\0\0\0\3", 4));
}

TEST_F(ProjectFileTest, WhatIsWrittenIsThereWhenOpenedAgain) {
  OpenProject(Path(), ProjectMode::Create)->Execute("INSERT INTO Settings VALUES(6000,6016,'104')");
  for (const ProjectMode mode : kModes) {
    EXPECT_EQ(OpenProject(Path(), mode)->Execute("SELECT * FROM Settings")->Get("Value"), Variant("104"));
  }
}

TEST_F(ProjectFileTest, CreateOpensAProjectThatIsThere) {
  MakeProject();
  const auto project = OpenProject(Path(), ProjectMode::Create);
  EXPECT_EQ(project->Execute("SELECT COUNT(*) AS N FROM HMI_Elements")->Get("N"), Variant(Long{200}));
  project->Execute("DELETE * FROM HMI_Elements");
}

TEST_F(ProjectFileTest, AnEmptyFileCanBecomeAProject) {
  std::ofstream(Path()).flush();
  EXPECT_EQ(RefusalOf(Path(), ProjectMode::Open).description,
            "project file \"" + Path() + "\": is not a project: it does not begin as a database file does");
  EXPECT_EQ(fs::file_size(Path()), 0u);
  EXPECT_EQ(MissingFromProject(*OpenProject(Path(), ProjectMode::Create)), "");
}

TEST_F(ProjectFileTest, WhatAnInterruptedCreationLeftIsReplaced) {
  std::ofstream(Path() + ".creating") << "half";
  std::ofstream(Path() + ".creating-wal") << "half";
  OpenProject(Path(), ProjectMode::Create)->Close();
  EXPECT_EQ(Snapshot().size(), 1u);
}

TEST_F(ProjectFileTest, APathWithoutAFolderIsInTheCurrentOne) {
  const fs::path before = fs::current_path();
  fs::current_path(Folder());
  OpenProject("here.qz7", ProjectMode::Create)->Close();
  EXPECT_FALSE(
      OpenProject("here.qz7", ProjectMode::ReadOnly)->Execute("SELECT COUNT(*) AS N FROM Settings")->Eof());
  fs::current_path(before);
  EXPECT_TRUE(fs::exists(Folder() / "here.qz7"));
}

TEST_F(ProjectFileTest, PathsMayHaveAnyCharacters) {
  for (const char* name : {"a b%20.qz7", "what?mode=memory#x", "\xC3\xA9\xE2\x82\xAC", "new\nline", "'\""}) {
    OpenProject(folder_.File(name), ProjectMode::Create)->Close();
    OpenProject(folder_.File(name), ProjectMode::Open)->Close();
    EXPECT_TRUE(fs::is_regular_file(folder_.File(name)));
  }
}

// Opening for reading.

TEST_F(ProjectFileTest, ReadOnlyReadsAndDoesNotWrite) {
  MakeProject();
  const auto before = Snapshot();
  const auto project = OpenProject(Path(), ProjectMode::ReadOnly);
  EXPECT_EQ(project->Execute("SELECT COUNT(*) AS N FROM HMI_Elements")->Get("N"), Variant(Long{200}));
  EXPECT_RAISES(kDatabase, "attempt to write a readonly database; in: DELETE * FROM HMI_Elements",
                project->Execute("DELETE * FROM HMI_Elements"));
  project->Close();
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(ProjectFileTest, OpenAndCreateWrite) {
  MakeProject();
  for (const ProjectMode mode : {ProjectMode::Open, ProjectMode::Create}) {
    const auto project = OpenProject(Path(), mode);
    project->Execute("INSERT INTO HMI_Elements(Xs) VALUES(1)");
    EXPECT_EQ(project->Execute("PRAGMA journal_mode")->Get("journal_mode"), Variant("wal"));
  }
}

TEST_F(ProjectFileTest, AProjectThatCannotBeWrittenCanBeRead) {
  MakeProject();
  const struct {
    fs::perms file;
    fs::perms folder;
  } cases[] = {{static_cast<fs::perms>(0444), static_cast<fs::perms>(0777)},
               {static_cast<fs::perms>(0666), static_cast<fs::perms>(0555)}};
  for (const auto& permissions : cases) {
    fs::permissions(Path(), permissions.file);
    fs::permissions(Folder(), permissions.folder);
    {
      const OrdinaryUser user;
      const auto project = OpenProject(Path(), ProjectMode::ReadOnly);
      EXPECT_EQ(project->Execute("SELECT COUNT(*) AS N FROM HMI_Elements")->Get("N"), Variant(Long{200}));
      for (const ProjectMode mode : {ProjectMode::Open, ProjectMode::Create}) {
        EXPECT_EQ(RefusalOf(Path(), mode),
                  (test::Raised{kDatabase,
                                "project file \"" + Path() + "\": cannot be written: Permission denied"}));
      }
    }
    fs::permissions(Folder(), static_cast<fs::perms>(0755));
    EXPECT_EQ(Snapshot().size(), 1u);
  }
}

TEST_F(ProjectFileTest, TheOptionsAreHandedOn) {
  MakeProject();
  const auto project = OpenProject(Path(), ProjectMode::Open, {.busyTimeout = 77});
  EXPECT_EQ(project->Execute("PRAGMA busy_timeout")->Get("timeout"), Variant(Long{77}));
  const ado::FailingVfs disk;
  const auto layered = OpenProject(Path(), ProjectMode::Open, {.fileSystem = disk.Name()});
  layered->Execute("SELECT * FROM HMI_Elements");
  EXPECT_GT(disk.OpenFiles(), 0);
}

TEST_F(ProjectFileTest, AProjectThatIsOpenCanBeOpenedAgain) {
  MakeProject();
  const auto first = OpenProject(Path(), ProjectMode::Open);
  first->Execute("DELETE * FROM HMI_Elements WHERE ID>5");
  for (const ProjectMode mode : kModes) {
    EXPECT_EQ(OpenProject(Path(), mode)->Execute("SELECT COUNT(*) AS N FROM HMI_Elements")->Get("N"),
              Variant(Long{5}));
  }
}

TEST_F(ProjectFileTest, AProjectWhoseProgramCrashedIsRecovered) {
  MakeProject();
  const auto running = OpenProject(Path(), ProjectMode::Open);
  running->Execute("DELETE * FROM HMI_Elements WHERE ID>5");
  const std::string crashed = folder_.File("crashed.qz7");
  for (const char* companion : {"", "-wal"}) fs::copy_file(Path() + companion, crashed + companion);
  const auto project = OpenProject(crashed, ProjectMode::Open);
  EXPECT_EQ(project->Execute("SELECT COUNT(*) AS N FROM HMI_Elements")->Get("N"), Variant(Long{5}));
  project->Close();
  EXPECT_FALSE(fs::exists(crashed + "-wal"));
}

// Refusals.

TEST_F(ProjectFileTest, AMissingFileIsNotFound) {
  for (const ProjectMode mode : {ProjectMode::Open, ProjectMode::ReadOnly}) {
    EXPECT_EQ(RefusalOf(Path(), mode),
              (test::Raised{kPathNotFound, "project file \"" + Path() + "\": there is no such file"}));
  }
  EXPECT_TRUE(Snapshot().empty());
}

TEST_F(ProjectFileTest, AMissingFolderIsNotFound) {
  const std::string path = folder_.File("no/panel.qz7");
  EXPECT_EQ(RefusalOf(path, ProjectMode::Open),
            (test::Raised{kPathNotFound, "project file \"" + path + "\": there is no such file"}));
  EXPECT_EQ(RefusalOf(path, ProjectMode::Create),
            (test::Raised{kPathNotFound, "project file \"" + path + "\": there is no such folder"}));
  EXPECT_TRUE(Snapshot().empty());
}

TEST_F(ProjectFileTest, AFileInThePlaceOfTheFolderIsNotFound) {
  std::ofstream(folder_.File("file")) << "x";
  const std::string path = folder_.File("file/panel.qz7");
  EXPECT_EQ(RefusalOf(path, ProjectMode::Create).number, kPathNotFound);
  EXPECT_EQ(RefusalOf(path, ProjectMode::Open).number, kPathNotFound);
}

TEST_F(ProjectFileTest, AFolderIsRefused) {
  fs::create_directory(Path());
  ExpectRefused("is a folder, not a project");
}

TEST_F(ProjectFileTest, APipeIsRefused) {
  ASSERT_EQ(mkfifo(Path().c_str(), 0600), 0);
  for (const ProjectMode mode : kModes) {
    EXPECT_EQ(
        RefusalOf(Path(), mode),
        (test::Raised{kDatabase, "project file \"" + Path() + "\": is not a file that could be a project"}));
  }
}

TEST_F(ProjectFileTest, AFileThatIsNoDatabaseIsRefused) {
  for (const std::string& text : {std::string("{}"), std::string(99, 'x'), std::string(5000, 'x'),
                                  std::string("SQLite format 3\0", 16)}) {
    std::ofstream(Path(), std::ios::binary) << text;
    ExpectRefused("is not a project: it does not begin as a database file does");
  }
}

TEST_F(ProjectFileTest, ADatabaseOfAnotherProgramIsRefused) {
  const auto other = ado::OpenSqlite(Path(), {.mode = ado::OpenMode::Create});
  other->Execute("CREATE TABLE T(A)");
  other->Close();
  ExpectRefused("is not a project: it is a database of another program");
}

TEST_F(ProjectFileTest, AnotherVersionIsRefused) {
  MakeProject();
  for (const int version : {0, 4, 255}) {
    Overwrite(60, {0, 0, 0, static_cast<char>(version)});
    ExpectRefused("is of project version " + std::to_string(version) +
                  ", but a version from 1 to 3 is expected");
  }
}

TEST_F(ProjectFileTest, AProjectThatLacksSomethingIsRefused) {
  const struct {
    const char* change;
    const char* lack;
  } cases[] = {{"DROP TABLE Operands", "lacks table Operands"},
               {"ALTER TABLE HMI_Elements DROP COLUMN StrStorageFont",
                "lacks column 'StrStorageFont' of table HMI_Elements"},
               {"DROP INDEX HMI_Elements_Tab", "lacks index HMI_Elements_Tab of table HMI_Elements"}};
  for (const auto& lacking : cases) {
    fs::remove(Path());
    MakeProject();
    const auto project = ado::OpenSqlite(Path());
    project->Execute(lacking.change);
    project->Close();
    ExpectRefused(lacking.lack);
  }
}

TEST_F(ProjectFileTest, ATruncatedFileIsRefused) {
  MakeProject();
  const std::uintmax_t whole = fs::file_size(Path());
  for (const std::uintmax_t size : {whole - 1, whole - kPage, std::uintmax_t{kPage}, std::uintmax_t{100}}) {
    fs::resize_file(Path(), size);
    ExpectRefused("is damaged: it has " + std::to_string(size) + " of " + std::to_string(whole) + " bytes");
  }
}

TEST_F(ProjectFileTest, TheLargestPagesAreCountedRight) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(Path().c_str(), &database), SQLITE_OK);
  sqlite3_exec(database, "PRAGMA page_size=65536", nullptr, nullptr, nullptr);
  for (const std::string& statement : ProjectSchemaStatements()) {
    EXPECT_EQ(sqlite3_exec(database, statement.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  }
  sqlite3_close(database);
  OpenProject(Path(), ProjectMode::ReadOnly)->Close();
  const std::uintmax_t whole = fs::file_size(Path());
  fs::resize_file(Path(), whole - 1);
  ExpectRefused("is damaged: it has " + std::to_string(whole - 1) + " of " + std::to_string(whole) +
                " bytes");
}

TEST_F(ProjectFileTest, AHeaderThatDoesNotFitIsRefused) {
  MakeProject();
  Overwrite(16, {1, 1});  // The size of a page is a power of two.
  ExpectRefusedBeginning("");
}

TEST_F(ProjectFileTest, ACorruptedPageIsRefused) {
  MakeProject();
  const std::string whole = Bytes(Path());
  ASSERT_GT(whole.size(), 8 * kPage);
  int refused = 0;
  for (std::size_t page = 1; page < whole.size() / kPage; ++page) {
    std::ofstream(Path(), std::ios::binary) << whole;
    Overwrite(page * kPage, std::string(kPage, '\x5A'));
    const Raised refusal = RefusalOf(Path(), ProjectMode::Open);
    EXPECT_EQ(refusal.number, kDatabase) << "page " << page;
    if (refusal.number == kDatabase) ++refused;
  }
  EXPECT_EQ(refused, static_cast<int>(whole.size() / kPage) - 1);
  ExpectRefusedBeginning("");
}

TEST_F(ProjectFileTest, TheDamageIsTold) {
  MakeProject();
  const std::size_t last = fs::file_size(Path()) - kPage;
  Overwrite(last, std::string(kPage, '\x5A'));
  ExpectRefusedBeginning("is damaged: *** in database main ***");
}

TEST_F(ProjectFileTest, ACorruptedSchemaCannotBeOpened) {
  MakeProject();
  const std::string whole = Bytes(Path());
  const std::size_t schema = whole.find("CREATE TABLE HMI_Elements");
  ASSERT_NE(schema, std::string::npos);
  Overwrite(schema, "GARBAGE TABL");
  ExpectRefusedBeginning("cannot be opened: malformed database schema (HMI_Elements)");
}

TEST_F(ProjectFileTest, ADamagedProjectWithALogIsLeftAsItIs) {
  MakeProject();
  {
    const auto running = OpenProject(Path(), ProjectMode::Open);
    running->Execute("DELETE * FROM HMI_Elements WHERE ID>150");
    const std::string log = Bytes(Path() + "-wal");
    const std::string file = Bytes(Path());
    running->Close();
    std::ofstream(Path(), std::ios::binary) << file;
    std::ofstream(Path() + "-wal", std::ios::binary) << log;
  }
  const std::string file = Bytes(Path());
  const std::string log = Bytes(Path() + "-wal");
  // A page that the log does not hold.
  const auto project = OpenProject(Path(), ProjectMode::ReadOnly);
  project->Close();
  std::ofstream(Path(), std::ios::binary) << file;
  std::ofstream(Path() + "-wal", std::ios::binary) << log;
  Overwrite(2 * kPage, std::string(kPage, '\x5A'));
  const std::string damaged = Bytes(Path());
  EXPECT_EQ(RefusalOf(Path(), ProjectMode::Open).number, kDatabase);
  EXPECT_EQ(Bytes(Path()), damaged);
  EXPECT_EQ(Bytes(Path() + "-wal"), log);
}

TEST_F(ProjectFileTest, AFileThatCannotBeReadIsRefused) {
  MakeProject();
  fs::permissions(Folder(), static_cast<fs::perms>(0755));
  fs::permissions(Path(), fs::perms::none);
  const OrdinaryUser user;
  for (const ProjectMode mode : kModes) {
    EXPECT_EQ(
        RefusalOf(Path(), mode),
        (test::Raised{kDatabase, "project file \"" + Path() + "\": cannot be read: Permission denied"}));
  }
}

TEST_F(ProjectFileTest, AFolderThatCannotBeEnteredIsRefused) {
  MakeProject();
  fs::permissions(Folder(), fs::perms::none);
  {
    const OrdinaryUser user;
    EXPECT_EQ(
        RefusalOf(Path(), ProjectMode::Open),
        (test::Raised{kDatabase, "project file \"" + Path() + "\": cannot be read: Permission denied"}));
  }
  fs::permissions(Folder(), static_cast<fs::perms>(0755));
}

TEST_F(ProjectFileTest, AFolderThatCannotBeWrittenGetsNoProject) {
  fs::permissions(Folder(), static_cast<fs::perms>(0555));
  {
    const OrdinaryUser user;
    EXPECT_EQ(RefusalOf(Path(), ProjectMode::Create),
              (test::Raised{kDatabase, "project file \"" + Path() + "\": cannot be made: cannot open \"" +
                                           Path() + ".creating\": unable to open database file"}));
  }
  fs::permissions(Folder(), static_cast<fs::perms>(0755));
  EXPECT_TRUE(Snapshot().empty());
}

TEST_F(ProjectFileTest, AFileThatCannotBeReplacedGetsNoProject) {
  if (geteuid() != 0) GTEST_SKIP() << "only a user who may do everything can make a file of another's";
  std::ofstream(Path()).flush();
  fs::permissions(Path(), static_cast<fs::perms>(0666));
  // Everybody may make files there, but replace only their own.
  fs::permissions(Folder(), static_cast<fs::perms>(01777));
  {
    const OrdinaryUser user;
    EXPECT_EQ(
        RefusalOf(Path(), ProjectMode::Create),
        (Raised{kDatabase, "project file \"" + Path() + "\": cannot be made: Operation not permitted"}));
  }
  EXPECT_EQ(Snapshot(), (std::map<std::string, std::string>{{"panel.qz7", ""}}));
}

TEST_F(ProjectFileTest, AFullDiskLeavesNoHalfProject) {
  ado::FailingVfs disk;
  int attempt = 0;
  int failed = 0;
  do {
    ASSERT_LT(++attempt, 1000);
    disk.FailFrom(attempt);
    const Raised refusal =
        test::RaisedBy([&] { OpenProject(Path(), ProjectMode::Create, {.fileSystem = disk.Name()}); });
    EXPECT_EQ(disk.OpenFiles(), 0);
    if (refusal.number != 0) {
      ++failed;
      const std::string beginning = "project file \"" + Path() + "\": ";
      EXPECT_EQ(refusal.number, kDatabase);
      EXPECT_EQ(refusal.description.substr(0, beginning.size()), beginning);
      EXPECT_NE(refusal.description.find("database or disk is full"), std::string::npos) << refusal;
    }
    disk.Heal();
    const auto left = Snapshot();
    EXPECT_TRUE(left.empty() || left.count("panel.qz7") == 1) << attempt;
    OpenProject(Path(), ProjectMode::Create)->Close();
    EXPECT_EQ(Snapshot().size(), 1u);
    fs::remove(Path());
  } while (disk.Failures() > 0);
  EXPECT_GT(failed, 5);
}

// Projects of older versions.

TEST_F(ProjectFileTest, AnOlderProjectIsBroughtUpToDateWhenItIsOpenedForWriting) {
  for (const Long version : {1, 2}) {
    for (const ProjectMode mode : {ProjectMode::Open, ProjectMode::Create}) {
      MakeVersion(version);
      EXPECT_EQ(Bytes(Path()).substr(60, 4), std::string("\0\0\0", 3) + static_cast<char>(version));
      const auto project = OpenProject(Path(), mode);
      EXPECT_EQ(MissingFromProject(*project), "");
      EXPECT_EQ(ProjectVersionOf(*project), 3);
      EXPECT_EQ(Count(*project, "HMI_Elements"), 200);
      for (const char* table : {"LibraryStrings", "ProjectImages"}) EXPECT_EQ(Count(*project, table), 0);
      project->Close();
      EXPECT_EQ(Bytes(Path()).substr(60, 4), std::string("\0\0\0\3", 4));
      EXPECT_EQ(Snapshot().size(), 1u);
      fs::remove(Path());
    }
  }
}

TEST_F(ProjectFileTest, AnUpgradeKeepsTheRowsOfTheTablesThatWereThere) {
  MakeVersion(2);
  const auto older = ado::OpenSqlite(Path());
  older->Execute("INSERT INTO StringLanguages VALUES(1,'English')");
  older->Close();
  EXPECT_EQ(Count(*OpenProject(Path(), ProjectMode::Open), "StringLanguages"), 1);
}

TEST_F(ProjectFileTest, PicturesOfBeforeTheirBitsWereToldStayAsTheyAre) {
  MakeProject();
  const auto older = ado::OpenSqlite(Path());
  older->Execute("ALTER TABLE ProjectImages DROP COLUMN Bits");
  older->Execute("INSERT INTO ProjectImages(CRC,RecordStatus) VALUES(5,3)");
  older->Close();
  const auto before = Snapshot();
  for (const ProjectMode mode : kModes) {
    const auto project = OpenProject(Path(), mode);
    EXPECT_EQ(project->Execute("SELECT * FROM ProjectImages")->FieldCount(), 11);
    project->Close();
    EXPECT_EQ(Snapshot(), before);
  }
}

TEST_F(ProjectFileTest, AProjectThatWasBroughtUpToDateIsOneForASecondConnectionToo) {
  MakeVersion(1);
  const auto first = OpenProject(Path(), ProjectMode::Open);
  first->Execute("INSERT INTO StringLanguages VALUES(1,'English')");
  // The beginning of the file still tells the old version.
  ASSERT_EQ(Bytes(Path()).substr(60, 4), std::string("\0\0\0\1", 4));
  for (const ProjectMode mode : kModes) {
    const auto second = OpenProject(Path(), mode);
    EXPECT_EQ(Count(*second, "StringLanguages"), 1);
    EXPECT_EQ(ProjectVersionOf(*second), 3);
  }
}

TEST_F(ProjectFileTest, AnOlderProjectOpenedReadOnlyStaysAsItIs) {
  MakeVersion(1);
  const auto before = Snapshot();
  const auto project = OpenProject(Path(), ProjectMode::ReadOnly);
  EXPECT_EQ(ProjectVersionOf(*project), 1);
  EXPECT_EQ(Count(*project, "HMI_Elements"), 200);
  EXPECT_EQ(Count(*project, "StringLanguages"), 0);
  EXPECT_TRUE(ado::OpenRecordset(*project, "SELECT * FROM LibraryStrings WHERE Number=1", ado::adOpenStatic,
                                 ado::adLockReadOnly)
                  ->Eof());
  for (const char* change : {"DELETE * FROM HMI_Elements", "INSERT INTO StringLanguages VALUES(1,'English')",
                             "CREATE TEMP TABLE T(A)"}) {
    EXPECT_EQ(test::ErrorOf([&] { project->Execute(change); }), kDatabase) << change;
  }
  project->Close();
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(ProjectFileTest, AnOlderProjectThatCannotBeWrittenCanBeRead) {
  MakeVersion(1);
  fs::permissions(Path(), static_cast<fs::perms>(0444));
  fs::permissions(Folder(), static_cast<fs::perms>(0555));
  {
    const OrdinaryUser user;
    EXPECT_EQ(Count(*OpenProject(Path(), ProjectMode::ReadOnly), "LibraryStrings"), 0);
    EXPECT_EQ(RefusalOf(Path(), ProjectMode::Open).description,
              "project file \"" + Path() + "\": cannot be written: Permission denied");
  }
  fs::permissions(Folder(), static_cast<fs::perms>(0755));
}

TEST_F(ProjectFileTest, AnOlderProjectThatLacksWhatItHadIsRefused) {
  MakeVersion(1);
  const auto project = ado::OpenSqlite(Path());
  project->Execute("DROP TABLE Operands");
  project->Close();
  ExpectRefused("lacks table Operands");
}

TEST_F(ProjectFileTest, AnOlderProjectWithSomethingInTheWayIsRefusedAndStaysAsItIs) {
  const struct {
    const char* change;
    const char* inTheWay;
  } cases[] = {{"CREATE TABLE LibraryStrings(A)", "table LibraryStrings"},
               {"CREATE VIEW stringlanguages AS SELECT 1 AS A", "view stringlanguages"},
               {"CREATE INDEX LibraryStrings ON HMI_Elements(Xs)", "index LibraryStrings"}};
  for (const char* journal : {"PRAGMA journal_mode=WAL", "PRAGMA journal_mode=DELETE"}) {
    for (const auto& blocked : cases) {
      MakeVersion(1);
      const auto project = ado::OpenSqlite(Path());
      project->Execute(blocked.change);
      project->Execute(journal);
      project->Close();
      ExpectRefused("cannot be brought to version 3: " + std::string(blocked.inTheWay) + " is in the way");
      fs::remove(Path());
    }
  }
}

TEST_F(ProjectFileTest, ATriggerOfALaterTablesNameIsInNobodysWay) {
  MakeVersion(1);
  const auto project = ado::OpenSqlite(Path());
  project->Execute("CREATE TRIGGER LibraryStrings DELETE ON Settings BEGIN DELETE FROM Numbers; END");
  project->Close();
  EXPECT_EQ(ProjectVersionOf(*OpenProject(Path(), ProjectMode::Open)), 3);
}

TEST_F(ProjectFileTest, AReaderOfAnOlderProjectKeepsSeeingTheLaterTablesEmpty) {
  MakeVersion(1);
  const auto reader = OpenProject(Path(), ProjectMode::ReadOnly);
  const auto writer = OpenProject(Path(), ProjectMode::Open);
  writer->Execute("INSERT INTO StringLanguages VALUES(1,'English')");
  EXPECT_EQ(ProjectVersionOf(*reader), 3);
  EXPECT_EQ(Count(*reader, "StringLanguages"), 0);
  EXPECT_EQ(Count(*OpenProject(Path(), ProjectMode::ReadOnly), "StringLanguages"), 1);
}

TEST_F(ProjectFileTest, AProjectThatAnotherBringsUpToDateMeanwhileIsTakenAsItIsThen) {
  for (const ProjectMode mode : {ProjectMode::Open, ProjectMode::Create}) {
    MakeVersion(1);
    const auto other = ado::OpenSqlite(Path());
    other->BeginTrans();
    const ado::AtStatement waiting("BEGIN IMMEDIATE", 1, [&] {
      for (const std::string& statement : ProjectUpgradeStatements(1)) other->Execute(statement);
      other->Execute("INSERT INTO StringLanguages VALUES(1,'English')");
      other->CommitTrans();
    });
    const auto project = OpenProject(Path(), mode);
    EXPECT_TRUE(waiting.Acted());
    EXPECT_EQ(ProjectVersionOf(*project), 3);
    EXPECT_EQ(Count(*project, "StringLanguages"), 1);
    project->Close();
    other->Close();
    fs::remove(Path());
  }
}

TEST_F(ProjectFileTest, AVersionThatIsMetOnlyWhenTheOtherHasWrittenIsCheckedToo) {
  MakeVersion(1);
  for (const Long version : {4, 0}) {
    const auto other = ado::OpenSqlite(Path());
    other->Execute("PRAGMA user_version=1");
    const std::string change = "PRAGMA user_version=" + std::to_string(version);
    const Raised refusal = {kDatabase, "project file \"" + Path() + "\": is of project version " +
                                           std::to_string(version) +
                                           ", but a version from 1 to 3 is expected"};
    other->BeginTrans();
    {
      const ado::AtStatement waiting("BEGIN IMMEDIATE", 1, [&] {
        other->Execute(change);
        other->CommitTrans();
      });
      EXPECT_EQ(RefusalOf(Path(), ProjectMode::Open), refusal);
      EXPECT_TRUE(waiting.Acted());
    }
    EXPECT_EQ(ProjectVersionOf(*other), version);
    EXPECT_TRUE(other->Execute("SELECT name FROM sqlite_master WHERE name='StringLanguages'")->Eof());
  }
}

TEST_F(ProjectFileTest, AReaderChecksTheVersionThatItMeets) {
  MakeVersion(1);
  const auto other = ado::OpenSqlite(Path());
  // The first time it is asked for is when the file is looked at.
  const ado::AtStatement reading("PRAGMA user_version", 2, [&] { other->Execute("PRAGMA user_version=4"); });
  EXPECT_EQ(
      RefusalOf(Path(), ProjectMode::ReadOnly).description,
      "project file \"" + Path() + "\": is of project version 4, but a version from 1 to 3 is expected");
  EXPECT_TRUE(reading.Acted());
}

TEST_F(ProjectFileTest, ACurrentProjectIsOpenedWithoutWritingAnything) {
  MakeProject();
  const auto before = Snapshot();
  for (const ProjectMode mode : {ProjectMode::Open, ProjectMode::Create}) {
    OpenProject(Path(), mode)->Close();
    EXPECT_EQ(Snapshot(), before);
  }
  const auto other = ado::OpenSqlite(Path());
  other->BeginTrans();
  for (const ProjectMode mode : kModes) {
    const auto project = OpenProject(Path(), mode, {.busyTimeout = 0});
    EXPECT_EQ(Count(*project, "HMI_Elements"), 200);
  }
}

// Projects that another connection has locked.

TEST_F(ProjectFileTest, AWriterThatCannotHaveTheFileToItselfSaysWhichFile) {
  MakeProject();
  const auto other = ado::OpenSqlite(Path());
  other->Execute("PRAGMA journal_mode=DELETE");
  other->Close();
  sqlite3* reader = nullptr;
  ASSERT_EQ(sqlite3_open(Path().c_str(), &reader), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(reader, "BEGIN; SELECT * FROM Settings", nullptr, nullptr, nullptr), SQLITE_OK);
  for (const ProjectMode mode : {ProjectMode::Open, ProjectMode::Create}) {
    EXPECT_RAISES(kDatabase,
                  "project file \"" + Path() + "\": cannot be opened: cannot open \"" + Path() +
                      "\": database is locked; in: PRAGMA journal_mode=WAL",
                  OpenProject(Path(), mode, {.busyTimeout = 0}));
  }
  EXPECT_EQ(Count(*OpenProject(Path(), ProjectMode::ReadOnly, {.busyTimeout = 0}), "HMI_Elements"), 200);
  sqlite3_close(reader);
  OpenProject(Path(), ProjectMode::Open, {.busyTimeout = 0})->Close();
}

TEST_F(ProjectFileTest, AReaderThatIsLockedOutSaysOfWhichFile) {
  MakeProject();
  const auto other = ado::OpenSqlite(Path());
  other->Execute("PRAGMA journal_mode=DELETE");
  other->Execute("BEGIN EXCLUSIVE");
  EXPECT_RAISES(
      kDatabase,
      "project file \"" + Path() + "\": cannot be opened: database is locked; in: PRAGMA user_version",
      OpenProject(Path(), ProjectMode::ReadOnly, {.busyTimeout = 0}));
  other->Execute("ROLLBACK");
  OpenProject(Path(), ProjectMode::ReadOnly, {.busyTimeout = 0})->Close();
}

TEST_F(ProjectFileTest, AnOlderProjectThatAnotherWritesSaysWhichFileCannotBeBroughtUpToDate) {
  MakeVersion(1);
  const auto other = ado::OpenSqlite(Path());
  other->BeginTrans();
  EXPECT_RAISES(kDatabase,
                "project file \"" + Path() +
                    "\": cannot be brought to version 3: database is locked; in: BEGIN IMMEDIATE",
                OpenProject(Path(), ProjectMode::Open, {.busyTimeout = 0}));
  EXPECT_EQ(Count(*OpenProject(Path(), ProjectMode::ReadOnly, {.busyTimeout = 0}), "StringLanguages"), 0);
}

TEST_F(ProjectFileTest, ANewerVersionThatOnlyTheLogTellsIsRefused) {
  MakeProject();
  const auto running = OpenProject(Path(), ProjectMode::Open);
  running->Execute("PRAGMA user_version=4");
  ASSERT_EQ(Bytes(Path()).substr(60, 4), std::string("\0\0\0\3", 4));
  for (const ProjectMode mode : kModes) {
    EXPECT_EQ(
        RefusalOf(Path(), mode).description,
        "project file \"" + Path() + "\": is of project version 4, but a version from 1 to 3 is expected");
  }
}

TEST_F(ProjectFileTest, AFullDiskLeavesAnOlderProjectWhole) {
  MakeVersion(1);
  const std::string older = Bytes(Path());
  ado::FailingVfs disk;
  int attempt = 0;
  int failed = 0;
  do {
    ASSERT_LT(++attempt, 1000);
    std::ofstream(Path(), std::ios::binary) << older;
    disk.FailFrom(attempt);
    const Raised refusal =
        test::RaisedBy([&] { OpenProject(Path(), ProjectMode::Open, {.fileSystem = disk.Name()}); });
    EXPECT_EQ(disk.OpenFiles(), 0);
    disk.Heal();
    if (refusal.number != 0) {
      ++failed;
      const std::string beginning = "project file \"" + Path() + "\": cannot be ";
      EXPECT_EQ(refusal.number, kDatabase);
      EXPECT_EQ(refusal.description.substr(0, beginning.size()), beginning);
      EXPECT_NE(refusal.description.find("database or disk is full"), std::string::npos) << refusal;
      const auto left = ado::OpenSqlite(Path(), {.fileSystem = disk.Name()});
      const Long version = ProjectVersionOf(*left);
      EXPECT_EQ(MissingFromProject(*left, version), "");
      EXPECT_EQ(left->Execute("SELECT name FROM sqlite_master WHERE name='StringLanguages'")->Eof(),
                version == 1);
    }
    const auto project = OpenProject(Path(), ProjectMode::Open, {.fileSystem = disk.Name()});
    EXPECT_EQ(MissingFromProject(*project), "");
    EXPECT_EQ(Count(*project, "HMI_Elements"), 200);
  } while (disk.Failures() > 0);
  EXPECT_GT(failed, 2);
}

}  // namespace
}  // namespace quenzel7::corvane1
