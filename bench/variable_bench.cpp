#include <zlib.h>

#include <array>
#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>

#include "bench/canvas.h"
#include "bench/open_page.h"
#include "bench/ratios.h"
#include "bench/sqlite_by_hand.h"
#include "platform/automation/array.h"
#include "platform/gdi/surface.h"
#include "variables/graphs/bargraph.h"
#include "variables/text/binary_text.h"
#include "variables/text/display_string.h"
#include "variables/text/list_text.h"
#include "variables/text/numeric.h"
#include "variables/text/range_text.h"
#include "variables/var_element.h"

namespace quenzel7::bench {
namespace {

constexpr int kVariables = 1000;

using VariableRef = std::shared_ptr<clsVar>;

/// The handler of a variable, as the class that it has.
template <class Handler>
Handler& HandlerOf(clsVar& variable) {
  return dynamic_cast<Handler&>(*variable.BinaryHandlers(variable.VarType()));
}

void SetTexts(TextListHandler& texts) {
  for (Long text = 1; text <= texts.ListCount(); ++text) {
    texts.ListTexts(text)->Txt("State " + std::to_string(text));
  }
}

/// One variable of each type in turn, as pages have them: numbers with units, states, bars, strings.
VariableRef MakeVariable(Long index) {
  constexpr enVarType kTypes[] = {eVT_Numeric,  eVT_BinaryText, eVT_ListText,     eVT_RangeTexts,
                                  eVT_BarGraph, eVT_Password,   eVT_DisplayString};
  auto variable = std::make_shared<clsVar>();
  variable->VarType(kTypes[static_cast<std::size_t>(index) % std::size(kTypes)]);
  variable->VarName("Variable " + std::to_string(index));
  variable->Flat3D(index % 2 == 0 ? 3 : 0);
  switch (variable->VarType()) {
    case eVT_Numeric: {
      auto& number = HandlerOf<clsVarNumeric>(*variable);
      number.Format("999.99");
      number.Postfix("l/min");
      break;
    }
    case eVT_BinaryText:
      SetTexts(HandlerOf<clsVarBinaryText>(*variable));
      break;
    case eVT_ListText:
    case eVT_RangeTexts: {
      auto& texts = HandlerOf<TextListHandler>(*variable);
      for (int more = 0; more < 4; ++more) texts.AppendText();
      SetTexts(texts);
      break;
    }
    default:
      break;
  }
  variable->Xs(index % 7 * 110);
  variable->Ys(index / 7 % 15 * 30);
  variable->Dx(100);
  variable->Dy(26);
  HandlerOf<BinaryHandler>(*variable).ReSyncDrawingElementParams(variable->DefaultDisplay(),
                                                                 variable->FontNumber());
  return variable;
}

std::vector<VariableRef> MakeVariables() {
  std::vector<VariableRef> variables;
  for (Long index = 0; index < kVariables; ++index) variables.push_back(MakeVariable(index));
  return variables;
}

// --- Where a variable may stand ---

/// The map of a whole panel, all free, as bytes: what a host that wants it fast hands over.
void AddTransformTest(std::vector<Ratio>& ratios) {
  constexpr int kTurns = 201, kWarmUps = 20, kTests = 10;
  const auto variable = MakeVariable(0);
  variable->Xs(0);
  variable->Ys(0);
  variable->Dx(kPageWidth);
  variable->Dy(kPageHeight);
  automation::Variant map(
      automation::Array(automation::VariantKind::Byte, {0, kPageWidth}, {0, kPageHeight}));
  std::vector<unsigned char> cells(std::size_t{kPageWidth} * kPageHeight);
  const double ratio = TimeRatio(
      kTurns, kWarmUps,
      [&] {
        for (int test = 0; test < kTests; ++test) {
          if (variable->GetTransformState(map) != eCS_Legall) throw std::runtime_error("the map is free");
        }
      },
      [&] {
        for (int test = 0; test < kTests; ++test) {
          if (std::memchr(cells.data(), 1, cells.size())) throw std::runtime_error("the cells are free");
          // What it found is wanted anew each time.
          asm volatile("" : : "r"(cells.data()) : "memory");
        }
      });
  ratios.push_back({"transform test of a variable of 800 x 480", ratio, 2.0, "memchr over the same cells"});
}

// --- Drawing ---

/// What a variable comes down to: its element, brought to the place and drawn, or a bar painted and copied.
void AddDrawing(std::vector<Ratio>& ratios) {
  constexpr int kTurns = 21, kWarmUps = 3;
  const Folder folder;
  const OpenPage page(folder.File("variables.qz7"));
  const std::vector<VariableRef> variables = MakeVariables();
  gdi::Surface ours(kPageWidth, kPageHeight), theirs(kPageWidth, kPageHeight);
  std::vector<std::function<void()>> alone;
  for (const VariableRef& variable : variables) {
    variable->Draw(ours.Dc(), false);
    const auto handler = variable->BinaryHandlers(variable->VarType());
    const ElementRef element = handler->DrawingElement();
    const auto bar = std::dynamic_pointer_cast<clsVarBargraph>(handler);
    alone.push_back([bar, element, variable, &theirs] {
      Long style = variable->Flat3D();
      if (bar) {
        bar->NewDrawForBarGraphForAlsoFlatAndFixedSingle(theirs.Dc(), variable->Dx(), variable->Dy(),
                                                         variable->ColorBack(), style);
      }
      element->Draw(theirs.Dc(), false);
    });
  }
  const double ratio = TimeRatio(
      kTurns, kWarmUps,
      [&] {
        for (const VariableRef& variable : variables) variable->Draw(ours.Dc(), false);
      },
      [&] {
        for (const auto& draw : alone) draw();
      });
  ratios.push_back(
      {"drawing 1,000 variables of seven types", ratio, 2.0, "their elements, in place already"});
}

// --- Saving and loading ---

/// A setting by hand: its name, the kind of its value, and the value's bytes.
struct HandSetting {
  std::string name;
  std::uint16_t kind;
  std::string value;
};

/// Settings in the block in which property bags keep them, written and read in one go.
class HandBlock {
 public:
  static std::vector<unsigned char> Written(const std::vector<HandSetting>& settings) {
    std::string block = "QBag\x01";
    const auto number = [&block](std::uint32_t value, int width) {
      for (int byte = 0; byte < width; ++byte) block += static_cast<char>(value >> 8 * byte);
    };
    number(static_cast<std::uint32_t>(settings.size()), 4);
    for (const HandSetting& setting : settings) {
      number(static_cast<std::uint32_t>(setting.name.size()), 4);
      block += setting.name;
      number(setting.kind, 2);
      if (setting.kind == kText) number(static_cast<std::uint32_t>(setting.value.size()), 4);
      block += setting.value;
    }
    number(static_cast<std::uint32_t>(
               crc32(0, reinterpret_cast<const Bytef*>(block.data()), static_cast<uInt>(block.size()))),
           4);
    return {block.begin(), block.end()};
  }

  static std::vector<HandSetting> Read(const std::vector<unsigned char>& block) {
    std::size_t place = 5;
    const auto number = [&](int width) {
      std::uint32_t value = 0;
      for (int byte = 0; byte < width; ++byte) value |= std::uint32_t{block.at(place++)} << 8 * byte;
      return value;
    };
    const auto text = [&](std::size_t size) {
      std::string taken(block.begin() + static_cast<std::ptrdiff_t>(place),
                        block.begin() + static_cast<std::ptrdiff_t>(place + size));
      place += size;
      return taken;
    };
    std::vector<HandSetting> settings(number(4));
    for (HandSetting& setting : settings) {
      setting.name = text(number(4));
      setting.kind = static_cast<std::uint16_t>(number(2));
      setting.value = text(setting.kind == kText ? number(4) : setting.kind == kFlag ? 1 : 4);
    }
    const auto crc = static_cast<std::uint32_t>(crc32(0, block.data(), static_cast<uInt>(place)));
    if (number(4) != crc) throw std::runtime_error("the block is damaged");
    return settings;
  }

 private:
  static constexpr std::uint16_t kText = 8, kFlag = 11;
};

/// The same reads and writes with prepared statements, and the settings into their block and out of it.
class VariablesByHand {
 public:
  explicit VariablesByHand(const std::string& path) : database_(path) {
    database_.Run("INSERT INTO Numbers (Name,Next) VALUES ('GUID',1)");
  }

  struct Row {
    std::vector<int> numbers;
    std::string name;
    std::vector<HandSetting> settings;
    int bags;
  };

  void Save(const std::vector<Row>& rows) {
    HandStatement row(database_, "SELECT * FROM HMI_Elements WHERE ID=?");
    HandStatement next(database_, "SELECT seq FROM sqlite_sequence WHERE name='HMI_Elements'");
    HandStatement number(database_, "SELECT Next FROM Numbers WHERE Name='GUID'");
    HandStatement counted(database_, "UPDATE Numbers SET Next=? WHERE Name='GUID'");
    std::string columns, places;
    for (const std::string_view column : kNumbers) {
      columns += std::string(column) + ",";
      places += "?,";
    }
    HandStatement insert(database_,
                         "INSERT INTO HMI_Elements (" + columns + "Text,Binary) VALUES (" + places + "?,?)");
    database_.Run("BEGIN");
    for (const Row& each : rows) {
      row.Bind(1, -1).Step();
      row.Reset();
      next.Step();
      next.Reset();
      number.Step();
      const int guid = number.Int(0);
      number.Reset();
      counted.Bind(1, guid + 1).Step();
      counted.Reset();
      int place = 0;
      for (const int value : each.numbers) {
        insert.Bind(place + 1, place == 0 ? guid : value);
        ++place;
      }
      const std::vector<unsigned char> block = HandBlock::Written(each.settings);
      insert.Bind(place + 1, each.name).Bind(place + 2, block).Step();
      insert.Reset();
      ids_.push_back(static_cast<int>(sqlite3_last_insert_rowid(database_.Handle())));
    }
    database_.Run("COMMIT");
  }

  void Load(const std::vector<Row>& rows) {
    HandStatement row(database_, "SELECT * FROM HMI_Elements WHERE ID=?");
    HandStatement operand(database_,
                          "SELECT Comment, Value FROM Operands WHERE Type=? AND Address=? AND NetID=?");
    HandStatement level(database_, "SELECT TransparencyLevel FROM ElementsAndImages WHERE Element_ID=?");
    std::vector<int> places;
    for (const std::string_view column : kNumbers) places.push_back(row.Place(column));
    const int text = row.Place("Text"), binary = row.Place("Binary");
    database_.Run("BEGIN");
    for (std::size_t index = 0; index < ids_.size(); ++index) {
      row.Bind(1, ids_[index]).Step();
      auto loaded = std::make_shared<Loaded>();
      for (std::size_t field = 0; field < places.size(); ++field)
        loaded->numbers[field] = row.Int(places[field]);
      loaded->name = row.Text(text);
      loaded->settings = HandBlock::Read(row.Bytes(binary));
      row.Reset();
      for (int bag = 0; bag < rows[index].bags; ++bag) {
        operand.Bind(1, 1).Bind(2, -1).Bind(3, 0).Step();
        operand.Reset();
      }
      level.Bind(1, ids_[index]).Step();
      level.Reset();
      loaded_.push_back(std::move(loaded));
    }
    database_.Run("COMMIT");
  }

  static constexpr std::string_view kNumbers[] = {"GUID",
                                                  "Type",
                                                  "Xs",
                                                  "Ys",
                                                  "Dx",
                                                  "Dy",
                                                  "DisplayID",
                                                  "GroupID",
                                                  "TouchOprndAddr",
                                                  "EnabledOpAddr",
                                                  "VisibleOpAddr",
                                                  "HighlightOpAddr",
                                                  "KeypadSuccessOpAddr",
                                                  "VarType",
                                                  "VarKeyPadEntry",
                                                  "TabIndex",
                                                  "VarOprndType",
                                                  "VarOprndAddr",
                                                  "ColorBack",
                                                  "ColorBackTouch",
                                                  "GlobalVarID",
                                                  "DefaultDisplay",
                                                  "FontNumber",
                                                  "DescriptionFontNumber",
                                                  "ColorFore",
                                                  "ColorForeTouch",
                                                  "ColorHatch",
                                                  "PenStyle",
                                                  "PenWidth",
                                                  "HatchStyle",
                                                  "Alignment",
                                                  "Flat3D",
                                                  "StorageText",
                                                  "StorageLibNum",
                                                  "StrStorageOprndType",
                                                  "StrStorageOprndAddr",
                                                  "StrStorageFont"};

 private:
  struct Loaded {
    std::array<int, std::size(kNumbers)> numbers{};
    std::string name;
    std::vector<HandSetting> settings;
  };

  HandDatabase database_;
  std::vector<int> ids_;
  /// A program that loads elements keeps what it read.
  std::vector<std::shared_ptr<Loaded>> loaded_;
};

/// What would be written by hand of a variable that has just been made.
VariablesByHand::Row ByHand(clsVar& variable) {
  constexpr int kBagsOfVariable = 6;
  VariablesByHand::Row row;
  row.numbers.assign(std::size(VariablesByHand::kNumbers), -1);
  const auto handler = variable.BinaryHandlers(variable.VarType());
  row.name = variable.VarName();
  row.settings = HandBlock::Read(handler->BinaryData());
  handler->BuildOpPropBag();
  row.bags = kBagsOfVariable + HandlerOf<BinaryHandler>(variable).ColOpPropBag()->Count();
  return row;
}

void AddSavingAndLoading(std::vector<Ratio>& ratios) {
  std::vector<double> save, load, handSave, handLoad;
  for (int turn = 0; turn < 9; ++turn) {
    const Folder folder;
    const OpenPage page(folder.File("variables.qz7"));
    const std::vector<VariableRef> variables = MakeVariables();
    std::vector<VariablesByHand::Row> rows;
    for (const VariableRef& variable : variables) rows.push_back(ByHand(*variable));
    save.push_back(ProcessorSeconds([&] {
      ado::Transaction transaction(page.Connection());
      for (const VariableRef& variable : variables) variable->SaveToDB();
      transaction.Commit();
    }));
    std::vector<VariableRef> loaded;
    load.push_back(ProcessorSeconds([&] {
      ado::Transaction transaction(page.Connection());
      for (const VariableRef& variable : variables) {
        const auto row = ado::OpenRecordset(
            page.Connection(), "SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(variable->ID()),
            ado::adOpenStatic, ado::adLockReadOnly);
        loaded.push_back(std::make_shared<clsVar>());
        loaded.back()->LoadFromDB(*row);
      }
      transaction.Commit();
    }));
    corvane1::OpenProject(folder.File("hand.qz7"), corvane1::ProjectMode::Create)->Close();
    VariablesByHand hand(folder.File("hand.qz7"));
    handSave.push_back(ProcessorSeconds([&] { hand.Save(rows); }));
    handLoad.push_back(ProcessorSeconds([&] { hand.Load(rows); }));
  }
  ratios.push_back({"SaveToDB of 1,000 new variables, one transaction", Median(save) / Median(handSave), 2.0,
                    "prepared statements by hand"});
  ratios.push_back({"LoadFromDB of 1,000 variables, one transaction", Median(load) / Median(handLoad), 2.0,
                    "prepared statements by hand"});
}

}  // namespace

std::vector<Ratio> VariableRatios() {
  std::vector<Ratio> ratios;
  AddTransformTest(ratios);
  AddDrawing(ratios);
  AddSavingAndLoading(ratios);
  return ratios;
}

}  // namespace quenzel7::bench
