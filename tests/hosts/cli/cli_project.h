#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "hosts/cli/commands.h"
#include "hosts/cli/demo_files.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/project_session.h"
#include "hosts/cli/text_file.h"
#include "platform/automation/convert.h"
#include "platform/platform.h"
#include "tests/hosts/cli/messages.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli::test {

/// A project file on disk that a test imports into, opens and looks into.
class CliProjectTest : public ::testing::Test {
 public:
  /// A canonical page file of page `number` with these elements, each a text from its first property on.
  static std::string PageText(Long number, const std::vector<std::string>& elements) {
    std::string text =
        "{\n  \"page\": " + std::to_string(number) +
        ",\n  \"name\": \"Boiler\",\n  \"panel\": {\n    \"type\": 1,\n    \"width\": 320,\n    "
        "\"height\": 240\n  },\n  \"elements\": [";
    for (std::size_t index = 0; index < elements.size(); ++index) {
      text += std::string(index == 0 ? "" : ",") + "\n    {\n      \"class\": \"clsRectangle\"" +
              elements[index] + "\n    }";
    }
    return text + (elements.empty() ? "" : "\n  ") + "]\n}\n";
  }
  /// Position, size and further properties of an element for PageText.
  static std::string ElementText(Long xs, Long ys, Long dx, Long dy, const std::string& more = {}) {
    std::string text;
    const std::pair<const char*, Long> numbers[] = {{"Xs", xs}, {"Ys", ys}, {"Dx", dx}, {"Dy", dy}};
    for (const auto& [name, value] : numbers) {
      text += ",\n      \"" + std::string(name) + "\": " + std::to_string(value);
    }
    return more.empty() ? text : text + ",\n      " + more;
  }

 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    Open();
  }
  void TearDown() override {
    session_.reset();
    Platform::Current() = Platform();
  }

  void Open(corvane1::ProjectMode mode = corvane1::ProjectMode::Create) {
    session_.reset();
    session_ = std::make_unique<ProjectSession>(Path(), mode, "p.qz7");
  }
  ProjectSession& Session() { return *session_; }
  ado::Connection& Connection() { return session_->Connection(); }
  std::string Path() const { return folder_.File("p.qz7"); }
  const Console& NoTerminal() const { return console_; }

  std::string File(const std::string& name) const { return folder_.File(name); }
  /// `folder` is that of the files of pictures.
  ImportResult Import(const std::string& text, const std::string& folder = {}) {
    PageFile page = ReadPageFile(text, "page file x");
    page.folder = folder;
    return ImportPage(Session(), page, text, "page file x", console_);
  }
  /// Imports the page of the demo and its texts, and opens the project again.
  void ImportDemo(corvane1::ProjectMode mode = corvane1::ProjectMode::Create) {
    Import(std::string(DemoPage()), QUENZEL7_SOURCE_DIR "/demo");
    session_.reset();
    const std::string strings = folder_.File("strings.csv");
    WriteTextFile(strings, std::string(DemoStrings()), "file");
    ImportStringsCommand(Path(), strings, console_);
    Open(mode);
  }
  LoadedPage Load(Long page = 1) { return LoadPage(Session(), ChoosePage(Session(), page), console_); }
  LoadedPage LoadAsFiled(Long page = 1) {
    return LoadPageAsFiled(Session(), ChoosePage(Session(), page), console_);
  }
  std::string Export(Long page = 1) { return ExportPage(Session(), LoadAsFiled(page)).text; }

  /// The rows of a query, a line each, columns parted by blanks.
  std::vector<std::string> Rows(const std::string& query, const std::vector<std::string>& columns) {
    std::vector<std::string> lines;
    const auto rows = ado::OpenRecordset(Connection(), query, ado::adOpenStatic, ado::adLockReadOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
      std::string line;
      for (const std::string& column : columns) {
        line += (line.empty() ? "" : " ") + automation::To<std::string>(rows->Get(column));
      }
      lines.push_back(line);
    }
    return lines;
  }

 private:
  quenzel7::test::TemporaryFolder folder_;
  std::ostringstream out_, err_;
  Console console_{out_, err_};
  std::unique_ptr<ProjectSession> session_;
};

}  // namespace quenzel7::cli::test
