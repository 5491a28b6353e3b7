#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "hosts/cli/commands.h"
#include "hosts/cli/text_file.h"
#include "platform/corvane1/project_file.h"
#include "platform/corvane1/project_string_library.h"
#include "platform/platform.h"
#include "tests/hosts/cli/messages.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

using corvane1::NumberedString;
using Strings = std::vector<NumberedString>;

const std::string kHeadings = "number,language,text,font\r\n";
const std::string kLanguages = kHeadings + ",1,English,\r\n,2,Deutsch,\r\n";

class StringsCommand : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    corvane1::OpenProject(project_, corvane1::ProjectMode::Create)->Close();
  }
  void TearDown() override { Platform::Current() = Platform(); }

  void Write(const std::string& text) { WriteTextFile(file_, text, "file"); }
  /// What an import of that text prints.
  std::string Imported(const std::string& text) {
    Write(text);
    std::ostringstream out, err;
    EXPECT_EQ(ImportStringsCommand(project_, file_, {out, err}), 0);
    EXPECT_EQ(err.str(), "");
    return out.str();
  }
  std::string RefusalOf(const std::string& text) {
    Write(text);
    std::ostringstream out, err;
    const std::string message = test::MessageOf([&] { ImportStringsCommand(project_, file_, {out, err}); });
    EXPECT_EQ(out.str(), "");
    return message;
  }
  /// The refusal of that line behind the two languages, its fourth one.
  std::string RefusalOfLine(const std::string& line) {
    const std::string before = "strings file " + file_ + ", line 4: ";
    const std::string message = RefusalOf(kLanguages + line + "\r\n");
    return message.rfind(before, 0) == 0 ? message.substr(before.size()) : message;
  }
  std::string Exported() {
    const std::string path = folder_.File("out.csv");
    EXPECT_EQ(ExportStringsCommand(project_, path), 0);
    return ReadTextFile(path, "file");
  }
  Strings InProject() {
    const auto connection = corvane1::OpenProject(project_, corvane1::ProjectMode::ReadOnly);
    corvane1::ProjectStringLibrary library;
    library.Open(connection, -1);
    return library.AllStrings();
  }
  void Execute(const std::string& statement) {
    const auto connection = corvane1::OpenProject(project_, corvane1::ProjectMode::Open);
    connection->Execute(statement);
    connection->Close();
  }

  quenzel7::test::TemporaryFolder folder_;
  const std::string project_ = folder_.File("p.qz7");
  const std::string file_ = folder_.File("in.csv");
};

TEST_F(StringsCommand, OfAnEmptyLibraryIsTheHeadings) { EXPECT_EQ(Exported(), kHeadings); }

TEST_F(StringsCommand, ImportsLanguagesAndTexts) {
  EXPECT_EQ(Imported(kLanguages + "5,1,boiler,3\r\n5,2,Kessel,\r\n0,1,\"a, \"\"b\"\"\r\nc\",0\r\n"),
            "3 texts and 2 languages imported into " + project_ + "\n");
  EXPECT_EQ(InProject(),
            (Strings{{0, 1, {"a, \"b\"\r\nc", 0}}, {5, 1, {"boiler", 3}}, {5, 2, {"Kessel", -1}}}));
}

TEST_F(StringsCommand, CountsInTheSingularToo) {
  EXPECT_EQ(Imported(kHeadings + ",1,English,\r\n5,1,boiler,\r\n"),
            "1 text and 1 language imported into " + project_ + "\n");
  EXPECT_EQ(Imported(kHeadings), "0 texts and 0 languages imported into " + project_ + "\n");
}

TEST_F(StringsCommand, ExportsLanguagesThenTextsByNumberAndLanguage) {
  Imported(kLanguages + "10,2,Kessel,\r\n9,1,tank,7\r\n10,1,boiler,0\r\n");
  EXPECT_EQ(Exported(), kLanguages + "9,1,tank,7\r\n10,1,boiler,0\r\n10,2,Kessel,\r\n");
}

TEST_F(StringsCommand, AnExportImportedAnywhereIsExportedTheSame) {
  Imported(kLanguages + ",3,\"Third, \"\"3\"\"\",\r\n" +
           "1,2,\"two\r\nlines\",12\r\n1,3,\xCE\xA9,\r\n2,1,EMPTY STRING,0\r\n7,1, blank ,1\r\n");
  const std::string first = Exported();
  Imported(first);
  EXPECT_EQ(Exported(), first);
  std::filesystem::remove(project_);
  corvane1::OpenProject(project_, corvane1::ProjectMode::Create)->Close();
  Imported(first);
  EXPECT_EQ(Exported(), first);
}

TEST_F(StringsCommand, WhatTheFileDoesNotNameStays) {
  Imported(kLanguages + "5,1,boiler,3\r\n5,2,Kessel,3\r\n");
  Imported(kHeadings + "5,2,Dampfkessel,4\r\n6,1,tank,\r\n");
  EXPECT_EQ(Exported(), kLanguages + "5,1,boiler,3\r\n5,2,Dampfkessel,4\r\n6,1,tank,\r\n");
}

TEST_F(StringsCommand, AnEmptyTextTakesOneAway) {
  Imported(kLanguages + "5,1,boiler,3\r\n5,2,Kessel,3\r\n");
  Imported(kHeadings + "5,1,,3\r\n");
  EXPECT_EQ(Exported(), kLanguages + "5,2,Kessel,3\r\n");
}

TEST_F(StringsCommand, ALanguageCanBeNamedAnewAndOneAdded) {
  Imported(kLanguages);
  Imported(kHeadings + ",2,German,\r\n,3,,\r\n");
  EXPECT_EQ(Exported(), kHeadings + ",1,English,\r\n,2,German,\r\n,3,,\r\n");
}

TEST_F(StringsCommand, RefusesAFileWithoutItsHeadings) {
  const std::string refusal =
      "strings file " + file_ + ", line 1: the headings number,language,text,font are expected";
  EXPECT_EQ(RefusalOf(""), refusal);
  EXPECT_EQ(RefusalOf("5,1,boiler,3\r\n"), refusal);
  EXPECT_EQ(RefusalOf("number,language,text\r\n"), refusal);
}

TEST_F(StringsCommand, RefusesLinesThatAreNoTextByTheirNumber) {
  EXPECT_EQ(RefusalOfLine("5,1,boiler"), "4 fields are expected, not 3");
  EXPECT_EQ(RefusalOfLine("5,1,boiler,3,"), "4 fields are expected, not 5");
  EXPECT_EQ(RefusalOfLine(""), "4 fields are expected, not 1");
  EXPECT_EQ(RefusalOfLine("-1,1,boiler,3"), "number \"-1\": a number from 0 is expected");
  EXPECT_EQ(RefusalOfLine("x,1,boiler,3"), "number \"x\": a number from 0 is expected");
  EXPECT_EQ(RefusalOfLine("5 ,1,boiler,3"), "number \"5 \": a number from 0 is expected");
  EXPECT_EQ(RefusalOfLine("2147483648,1,boiler,3"), "number \"2147483648\": a number from 0 is expected");
  EXPECT_EQ(RefusalOfLine("5,0,boiler,3"), "language \"0\": a number from 1 is expected");
  EXPECT_EQ(RefusalOfLine("5,,boiler,3"), "language \"\": a number from 1 is expected");
  EXPECT_EQ(RefusalOfLine(",x,Ivrit,"), "language \"x\": a number from 1 is expected");
  EXPECT_EQ(RefusalOfLine("5,1,boiler,-1"), "font \"-1\": a number from 0 is expected");
  EXPECT_EQ(RefusalOfLine("5,1,boiler,x"), "font \"x\": a number from 0 is expected");
  EXPECT_EQ(RefusalOfLine(",3,Ivrit,4"), "the name of a language has no font");
}

TEST_F(StringsCommand, RefusesLanguagesThatThereAreNot) {
  EXPECT_EQ(RefusalOfLine("5,3,boiler,3"),
            "language 3 of the string library: a number from 1 to 2 is expected");
  EXPECT_EQ(RefusalOfLine(",4,Ivrit,"), "language 4 of the string library: a number from 1 to 3 is expected");
}

TEST_F(StringsCommand, RefusesWhatStandsThereTwice) {
  EXPECT_EQ(RefusalOfLine(",1,English,"), "language 1 stands in line 2 already");
  EXPECT_EQ(RefusalOf(kLanguages + "5,1,\"a\r\nb\",\r\n5,2,c,\r\n5,1,d,\r\n"),
            "strings file " + file_ + ", line 7: text 5 in language 1 stands in line 4 already");
}

TEST_F(StringsCommand, RefusesWhatIsNoCsvFile) {
  EXPECT_EQ(RefusalOfLine("5,1,\"boiler\"x,3"),
            "behind a field in quotes there is neither a comma nor the line's end");
}

TEST_F(StringsCommand, AnErrorChangesNothing) {
  Imported(kLanguages + "5,1,boiler,3\r\n");
  const std::string before = Exported();
  EXPECT_EQ(RefusalOf(kHeadings + ",1,Other,\r\n,3,Third,\r\n5,1,other,1\r\n6,1,new,\r\n6,9,x,\r\n"),
            "strings file " + file_ +
                ", line 6: language 9 of the string library: a number from 1 to 3 is expected");
  EXPECT_EQ(Exported(), before);
}

TEST_F(StringsCommand, TellsWhatTheProjectIsMissing) {
  Write(kHeadings);
  std::ostringstream out, err;
  const std::string absent = folder_.File("absent.qz7");
  EXPECT_EQ(test::MessageOf([&] {
              ImportStringsCommand(absent, file_, {out, err});
            }),
            "project file \"" + absent + "\": there is no such file");
  EXPECT_FALSE(std::filesystem::exists(absent));
  EXPECT_EQ(test::MessageOf([&] { ExportStringsCommand(absent, file_); }),
            "project file \"" + absent + "\": there is no such file");
  EXPECT_EQ(ReadTextFile(file_, "file"), kHeadings);
  EXPECT_EQ(test::MessageOf([&] {
              ImportStringsCommand(project_, absent, {out, err});
            }),
            "strings file " + absent + " cannot be read: No such file or directory");
}

TEST_F(StringsCommand, NamesTheProjectWhoseLanguagesAreNoLibrary) {
  Execute("INSERT INTO StringLanguages (Language, Name) VALUES (1, NULL)");
  const std::string message = test::MessageOf([&] { Exported(); });
  EXPECT_EQ(message.rfind("project " + project_ + ": ", 0), 0u) << message;
}

TEST_F(StringsCommand, TextsOfNoLanguageAreNotExported) {
  Imported(kLanguages);
  Execute("INSERT INTO LibraryStrings (Number, Language, Text, FontNumber) VALUES (1, 3, 'lost', 4)");
  EXPECT_EQ(Exported(), kLanguages);
}

}  // namespace
}  // namespace quenzel7::cli
