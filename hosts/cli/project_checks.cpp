#include "hosts/cli/project_checks.h"

#include <map>
#include <optional>
#include <set>
#include <tuple>

#include "framework/element_types.h"
#include "framework/operands.h"
#include "framework/tab_index.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/group_checks.h"
#include "hosts/cli/host_tables.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/page_operands.h"
#include "hosts/cli/picture_check.h"
#include "hosts/cli/place_check.h"
#include "hosts/cli/progress_bar.h"
#include "hosts/cli/property_values.h"
#include "hosts/cli/quiet_boxes.h"
#include "hosts/cli/row_loader.h"
#include "hosts/cli/table_column.h"
#include "hosts/cli/text_check.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "platform/corvane1/panel_fonts.h"
#include "platform/fennick1/operand_types.h"
#include "shapes/element_columns.h"

namespace quenzel7::cli {
namespace {

using automation::To;

ado::RecordsetRef Query(ado::Connection& connection, const std::string& statement) {
  return ado::OpenRecordset(connection, statement, ado::adOpenStatic, ado::adLockReadOnly);
}

/// A column of a row as a number, or nothing.
std::optional<Long> NumberIn(const ado::Recordset& row, std::string_view column) {
  std::optional<Long> number;
  ErrorOf([&] { number = To<Long>(row.Get(column)); });
  return number;
}

/// A row of HMI_Operands.
struct OperandRow {
  Long element, type, address, network, purpose;

  friend auto operator<=>(const OperandRow&, const OperandRow&) = default;
};

std::string NameOf(enOperandPurpose purpose) {
  const Json name = JsonFromValue(automation::TypeOf<enOperandPurpose>(), Long{purpose});
  return name.is_string() ? name.get<std::string>() : "purpose " + name.dump();
}

OperandRow ReadOperandRow(const ado::Recordset& row) {
  const auto number = [&row](const char* column) { return ReadColumn<Long>(row, "HMI_Operands", column); };
  return {number("ElementID"), number("OprndType"), number("OprndAddr"), number("OprndNetID"),
          number("OprndPurpose")};
}

/// One check of one project.
class Check {
 public:
  Check(ProjectSession& project, const Console& console, const ElementClasses& classes)
      : connection_(project.Connection()),
        console_(console),
        hostPages_(connection_),
        hostGroups_(connection_),
        loader_(connection_, classes) {}

  CheckResult Run() {
    CheckPages();
    ReadOperands();
    ReadRows();
    groupFindings_ = CheckGroups(rows_);
    ErrorOf([&] { pictures_.emplace(connection_); });
    CheckElements();
    CheckOperands();
    CheckLibrary();
    CheckPictures();
    result_.pages = pages_.size();
    return std::move(result_);
  }

 private:
  void CheckPages() {
    const auto wrong = [this](const std::string& row, const automation::AutomationError& error) {
      result_.findings.push_back("HostPages, row " + row + ": " + error.Description());
    };
    for (const PageInfo& page : hostPages_.Kept(wrong)) {
      pages_[page.number] = page.panel;
      const std::string unreadable =
          ErrorOf([&] { HostPages::RequireSource(*hostPages_.Find(page.number)); });
      if (!unreadable.empty()) result_.findings.push_back(unreadable);
    }
  }

  /// The rows that can be read, and what is wrong with the others.
  void ReadOperands() {
    const auto rows = Query(connection_, "SELECT *, rowid AS RowNumber FROM HMI_Operands ORDER BY rowid");
    for (; !rows->Eof(); rows->MoveNext()) {
      ++result_.operandRows;
      const auto number = To<std::string>(rows->Get("RowNumber"));
      std::optional<OperandRow> operand;
      const std::string wrong = ErrorOf([&] { operand = ReadOperandRow(*rows); });
      if (operand) used_.insert(*operand);
      operands_.push_back({"HMI_Operands, row " + number, operand, wrong});
    }
  }

  void ReadRows() {
    elements_ = Query(connection_, "SELECT * FROM HMI_Elements ORDER BY DisplayID, ID");
    for (; !elements_->Eof(); elements_->MoveNext()) {
      ++result_.elements;
      const auto id = NumberIn(*elements_, "ID");
      if (!id) continue;
      const auto page = NumberIn(*elements_, "DisplayID");
      if (page) pages_.try_emplace(*page);
      rows_.push_back({*id, page, NumberIn(*elements_, "Type"), NumberIn(*elements_, "GroupID")});
      ids_.insert(*id);
      if (rows_.back().type == kGroupElement && *id != kNone) groups_.emplace(page, *id);
    }
    for (const auto& [number, panel] : pages_) {
      if (panel) continue;
      result_.notes.push_back("page " + std::to_string(number) +
                              (hostPages_.Has(number) ? " has a wrong row in" : " is not in") +
                              " HostPages: how large it is and what lies off it is not known");
    }
  }

  void CheckElements() {
    // What the library would show boxes of is told as a finding.
    const QuietBoxes quiet;
    ProgressBar progress(console_, "checking", result_.elements);
    if (result_.elements > 0) elements_->MoveFirst();
    for (; !elements_->Eof(); elements_->MoveNext()) {
      CheckElement();
      progress.Advance();
    }
  }

  /// Checks the row on which the recordset stands.
  void CheckElement() {
    const auto page = NumberIn(*elements_, "DisplayID");
    place_ = loader_.PlaceOf(page, *elements_);
    ElementRef element;
    const std::string wrong = ErrorOf([&] { element = loader_.Load(elements_); });
    if (!page) {
      Tell("column 'DisplayID' of HMI_Elements: " + ErrorOf([&] { To<Long>(elements_->Get("DisplayID")); }));
    }
    if (!wrong.empty()) Tell(wrong);
    const auto id = NumberIn(*elements_, "ID");
    if (id) {
      if (const auto found = groupFindings_.find(*id); found != groupFindings_.end()) {
        for (const std::string& finding : found->second) Tell(finding);
      }
      if (*id == kNone) Tell("has ID -1, which stands for no row; another one was expected");
      TellErrorOf([&] { CheckGuid(*id); });
    }
    if (!element) return;
    TellErrorOf([&] {
      if (IsGroup(*element)) hostGroups_.Find(IdOf(*element));
    });
    // What one of them cannot say hides nothing of the others.
    TellErrorOf([&] { CheckTouch(*element, page); });
    TellErrorOf([&] { CheckTabIndex(*element, page); });
    TellErrorOf([&] { CheckPlace(*element, page); });
    TellErrorOf([&] {
      for (const std::string& finding : CheckTextNumbers(*element, *elements_)) Tell(finding);
    });
    TellErrorOf([&] {
      for (const std::string& finding : CheckText(*element)) Tell(finding);
    });
    TellErrorOf([&] { CheckOperandsOf(*element); });
    TellErrorOf([&] {
      if (!pictures_) return;
      for (const std::string& finding : pictures_->Check(*element)) Tell(finding);
    });
  }

  void CheckGuid(Long id) {
    // Groups have none.
    if (NumberIn(*elements_, "Type") == kGroupElement && elements_->Get("GUID").IsNull()) return;
    const Long guid = ReadColumn<Long>(*elements_, "HMI_Elements", "GUID");
    const auto [first, isNew] = guids_.try_emplace(guid, id);
    if (isNew) return;
    Tell("GUID " + std::to_string(guid) + " is that of row " + std::to_string(first->second) +
         ", too; a number of its own was expected");
  }

  void CheckTouch(ItfHmiElement& element, const std::optional<Long>& page) {
    const Long group = To<Long>(Read(element, "GroupID"));
    if (groups_.count({page, group}) == 0 || !To<bool>(Read(element, "IsTouchable"))) return;
    Tell("is touchable (TouchOprndAddr " + To<std::string>(Read(element, "TouchOprndAddr")) +
         ") and stands in group " + std::to_string(group) + "; TouchOprndAddr -1 was expected in a group");
  }

  void CheckTabIndex(ItfHmiElement& element, const std::optional<Long>& page) {
    if (!BearsText(element) && !IsVariable(element)) return;
    if (!To<bool>(Read(element, "IsTouchable"))) return;
    const Long place = To<Long>(Read(element, "TabIndex"));
    if (place == kNoTabIndex) return;
    const auto [first, isNew] = tabIndices_.try_emplace({page, place}, IdOf(element));
    if (isNew) return;
    Tell("TabIndex " + std::to_string(place) + " is that of row " + std::to_string(first->second) +
         ", too; a place of its own in the tab order was expected");
  }

  void CheckPlace(ItfHmiElement& element, const std::optional<Long>& page) {
    const auto known = page ? pages_.find(*page) : pages_.end();
    const std::string wrong =
        places_.Check(element, known == pages_.end() ? std::optional<Panel>() : known->second);
    if (!wrong.empty()) Tell(wrong);
  }

  void CheckOperandsOf(ItfHmiElement& element) {
    const Long id = IdOf(element);
    for (const auto& [property, purpose, type, address] : OperandsOf(element)) {
      if (used_.count({id, type, address, kLocalNetwork, purpose})) continue;
      Tell(std::string(property) + " " + std::to_string(address) + " has no row in HMI_Operands; one of " +
           fennick1::OperandText(type, address, kLocalNetwork, {}) + " with " + NameOf(purpose) +
           " was expected");
    }
  }

  void CheckOperands() {
    for (const auto& [place, operand, wrong] : operands_) {
      place_ = place;
      if (!operand) {
        Tell(wrong);
      } else if (ids_.count(operand->element) == 0) {
        const std::string text = fennick1::OperandText(operand->type, operand->address, operand->network, {});
        place_ += " (" + text + ", " + NameOf(static_cast<enOperandPurpose>(operand->purpose)) + ")";
        Tell("ElementID " + std::to_string(operand->element) +
             " names no row; the ID of a row of HMI_Elements was expected");
      }
    }
  }

  /// The numbers of fonts that texts of the library name. They are kept as they are: another host may have
  /// them.
  void CheckLibrary() {
    place_ = "string library";
    TellErrorOf([&] {
      if (!HasTable(connection_, "LibraryStrings")) return;
      for (const auto& [number, language, string] : OpenedLibrary().AllStrings()) {
        if (string.fontNumber == kNone || corvane1::IsPanelFont(string.fontNumber)) continue;
        Tell("text " + std::to_string(number) + " in language " + std::to_string(language) + " has font " +
             std::to_string(string.fontNumber) +
             ", which the panel does not have; the number of one of its fonts was expected");
      }
    });
  }

  /// The tables of the pictures, and the files that they came from.
  void CheckPictures() {
    // Pixels that do not unpack are a finding.
    const QuietBoxes quiet;
    std::set<Long> pages;
    for (const auto& page : pages_) pages.insert(page.first);
    const std::string wrong = ErrorOf([&] {
      const std::vector<std::string> findings = CheckPictureTables(connection_, ids_);
      result_.findings.insert(result_.findings.end(), findings.begin(), findings.end());
      for (const std::string& note : CheckPicturePages(connection_, pages)) result_.notes.push_back(note);
      for (const std::string& note : CheckPictureFiles(connection_)) result_.notes.push_back(note);
    });
    if (!wrong.empty()) result_.findings.push_back(wrong);
  }

  template <class Action>
  void TellErrorOf(const Action& action) {
    const std::string wrong = ErrorOf(action);
    if (!wrong.empty()) Tell(wrong);
  }

  void Tell(const std::string& wrong) { result_.findings.push_back(place_ + ": " + wrong); }

  struct NumberedOperandRow {
    std::string place;
    std::optional<OperandRow> operand;
    std::string wrong;
  };

  ado::Connection& connection_;
  const Console& console_;
  HostPages hostPages_;
  HostGroups hostGroups_;
  RowLoader loader_;
  PlaceCheck places_;
  /// Nothing when the table of pictures is wrong, which is told once.
  std::optional<PictureCheck> pictures_;
  CheckResult result_;
  /// The panels of the pages that the project has, of those that the host knows.
  std::map<Long, std::optional<Panel>> pages_;
  std::vector<NumberedOperandRow> operands_;
  std::set<OperandRow> used_;
  ado::RecordsetRef elements_;
  std::vector<GroupedRow> rows_;
  std::set<Long> ids_;
  /// By their pages: a group holds nothing of another page.
  std::set<std::pair<std::optional<Long>, Long>> groups_;
  std::map<Long, std::vector<std::string>> groupFindings_;
  /// The first row that has each.
  std::map<Long, Long> guids_;
  /// The same for the places in the tab order of each page.
  std::map<std::pair<std::optional<Long>, Long>, Long> tabIndices_;
  /// Where what is told now was found.
  std::string place_;
};

}  // namespace

CheckResult CheckProject(ProjectSession& project, const Console& console, const ElementClasses& classes) {
  return Check(project, console, classes).Run();
}

}  // namespace quenzel7::cli
