#pragma once

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bench/sqlite_by_hand.h"

namespace quenzel7::bench {

// clang-format off
/// Columns of the table of elements, in the order of HandElement::values. Behind "TabIndex" all are 0.
constexpr std::string_view kHandColumns[] = {
    "GUID", "OrderIndex", "DisplayID", "GroupID", "Type",
    "Xs", "Ys", "Dx", "Dy",
    "ColorBack", "ColorFore", "ColorBackTouch", "ColorForeTouch", "ColorHatch",
    "PenStyle", "PenWidth", "HatchStyle",
    "TouchOprndAddr", "VisibleOpAddr", "KeypadSuccessOpAddr", "EnabledOpAddr", "HighlightOpAddr",
    "TabIndex",
    "FontNumber", "DescriptionFontNumber", "Alignment", "Flat3D", "VarType", "VarKeyPadEntry",
    "VarOprndType", "VarOprndAddr", "GlobalVarID", "DefaultDisplay"};
// clang-format on
enum HandColumn : std::size_t { kGuid, kOrderIndex, kDisplayId, kGroupId, kType };

/// An element as a program without classes would have it.
struct HandElement {
  std::array<int, std::size(kHandColumns)> values{};
  std::vector<HandElement> members;  ///< of a group
  int id = -1;
};

/// Where the order of a new row comes from: there is none, and no unique number either; it is asked for and
/// goes into the element; it is asked for and the element's stays nevertheless; it is asked for, goes into
/// the row, and is read from there each time.
enum class HandOrder { kNone, kElement, kLost, kRow };

/// A class of elements, and the columns that it does not write into a new row and into one that is there.
struct HandClass {
  int type;
  HandOrder order;
  std::vector<std::string_view> notInserted, notUpdated;
};

/// Saving and loading a page: the same reads and writes as the elements', with prepared statements.
class PageByHand {
 public:
  PageByHand(const std::string& path, const std::vector<HandClass>& classes)
      : database_(path),
        row_(database_, "SELECT * FROM HMI_Elements WHERE ID=?"),
        order_(database_, "SELECT OrderIndex FROM HMI_Elements WHERE ID=?"),
        number_(database_, "SELECT Next FROM Numbers WHERE Name='GUID'"),
        counted_(database_, "UPDATE Numbers SET Next=? WHERE Name='GUID'"),
        highest_(database_, "SELECT MAX(OrderIndex) FROM HMI_Elements WHERE DisplayID=?") {
    database_.Run("INSERT INTO Numbers (Name,Next) VALUES ('GUID',1)");
    for (const HandClass& each : classes) writers_.push_back(std::make_unique<Writer>(database_, each));
  }

  /// Saves new elements as a host does: a group gets its row, takes its members in, which saves them, and is
  /// saved, which saves them twice more.
  void SaveNew(std::vector<HandElement>& elements) {
    database_.Run("BEGIN");
    for (HandElement& element : elements) SaveNew(element);
    database_.Run("COMMIT");
  }

  /// Reads what elements keep of their rows, in the order of drawing; gives their number.
  std::size_t Load(int page) {
    HandStatement rows(database_, "SELECT * FROM HMI_Elements WHERE DisplayID=? ORDER BY OrderIndex");
    std::array<int, std::size(kColumnsRead)> places{};
    std::transform(std::begin(kColumnsRead), std::end(kColumnsRead), places.begin(),
                   [&](std::string_view name) { return rows.Place(name); });
    const int type = rows.Place("Type");
    for (rows.Bind(1, page); rows.Step();) {
      const std::size_t kept = WriterOf(rows.Int(type)).order == HandOrder::kNone ? 2 : places.size();
      auto loaded = std::make_shared<std::array<int, std::size(kColumnsRead)>>();
      for (std::size_t field = 0; field < kept; ++field) (*loaded)[field] = rows.Int(places[field]);
      loaded_.push_back(std::move(loaded));
    }
    return loaded_.size();
  }

 private:
  /// The columns but some, with the statement that writes them.
  struct Statement {
    template <class MakeText>
    Statement(HandDatabase& database, const std::vector<std::string_view>& leftOut, MakeText makeText)
        : columns(Without(leftOut)), statement(database, makeText(columns)) {}

    static std::vector<std::size_t> Without(const std::vector<std::string_view>& leftOut) {
      std::vector<std::size_t> columns;
      for (std::size_t column = 0; column < std::size(kHandColumns); ++column) {
        if (std::count(leftOut.begin(), leftOut.end(), kHandColumns[column]) == 0) columns.push_back(column);
      }
      return columns;
    }
    /// Gives the number of the parameters.
    int BindValues(const HandElement& element) {
      int place = 0;
      for (const std::size_t column : columns) statement.Bind(++place, element.values[column]);
      return place;
    }
    void Run() {
      statement.Step();
      statement.Reset();
    }

    std::vector<std::size_t> columns;
    HandStatement statement;
  };

  struct Writer {
    Writer(HandDatabase& database, const HandClass& described)
        : type(described.type),
          order(described.order),
          insert(database, described.notInserted, InsertText),
          update(database, described.notUpdated, UpdateText) {}

    static std::string InsertText(const std::vector<std::size_t>& columns) {
      std::string names, places;
      for (const std::size_t column : columns) {
        names.append(names.empty() ? "" : ",").append(kHandColumns[column]);
        places += places.empty() ? "?" : ",?";
      }
      return "INSERT INTO HMI_Elements (" + names + ") VALUES (" + places + ")";
    }
    static std::string UpdateText(const std::vector<std::size_t>& columns) {
      std::string changes;
      for (const std::size_t column : columns) {
        changes.append(changes.empty() ? "" : ",").append(kHandColumns[column]).append("=?");
      }
      return "UPDATE HMI_Elements SET " + changes + " WHERE ID=?";
    }

    int type;
    HandOrder order;
    Statement insert, update;
  };

  Writer& WriterOf(int type) {
    return **std::find_if(writers_.begin(), writers_.end(),
                          [type](const auto& writer) { return writer->type == type; });
  }

  void SaveNew(HandElement& element) {
    for (HandElement& member : element.members) {
      if (!member.members.empty()) SaveNew(member);
    }
    Save(element, {});
    if (element.members.empty()) return;
    for (HandElement& member : element.members) {
      member.values[kGroupId] = element.id;
      Save(member, member.members);
    }
    Save(element, element.members);
  }

  void Save(HandElement& element, std::span<HandElement> members) {
    Writer& writer = WriterOf(element.values[kType]);
    row_.Bind(1, element.id).Step();
    row_.Reset();
    for (HandElement& member : members) Save(member, member.members);
    if (element.id == -1) {
      if (writer.order != HandOrder::kNone) Number(element, writer.order);
      writer.insert.BindValues(element);
      writer.insert.Run();
      element.id = static_cast<int>(sqlite3_last_insert_rowid(database_.Handle()));
    } else {
      const int values = writer.update.BindValues(element);
      writer.update.statement.Bind(values + 1, element.id);
      writer.update.Run();
    }
    if (writer.order == HandOrder::kRow) element.values[kOrderIndex] = Asked(order_.Bind(1, element.id));
    for (HandElement& member : members) Save(member, member.members);
  }

  void Number(HandElement& element, HandOrder order) {
    element.values[kGuid] = Asked(number_);
    counted_.Bind(1, element.values[kGuid] + 1).Step();
    counted_.Reset();
    const int next = Asked(highest_.Bind(1, element.values[kDisplayId])) + 1;
    if (order != HandOrder::kLost) element.values[kOrderIndex] = next;
  }

  /// The number that a statement gives.
  static int Asked(HandStatement& statement) {
    statement.Step();
    const int number = statement.Int(0);
    statement.Reset();
    return number;
  }

  HandDatabase database_;
  HandStatement row_, order_, number_, counted_, highest_;
  std::vector<std::unique_ptr<Writer>> writers_;
  /// A program that loads elements keeps what it read.
  std::vector<std::shared_ptr<std::array<int, 17>>> loaded_;
};

}  // namespace quenzel7::bench
