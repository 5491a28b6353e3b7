#include "hosts/cli/page_store.h"

#include <gtest/gtest.h>

#include <limits>

#include "hosts/cli/demo_files.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/host_tables.h"
#include "hosts/cli/json_document.h"
#include "hosts/cli/page_properties.h"
#include "hosts/cli/property_values.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "platform/corvane1/settings.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/library_fixture.h"
#include "variables/var_types.h"

namespace quenzel7::cli {
namespace {

class PageStoreTest : public test::CliProjectTest {
 protected:
  void SetInProject(Long key, const std::string& text) {
    corvane1::LayeredSettings(Platform::Current().heldProject).SetInProject(6000, key, text);
    // Read anew with the next opening.
    Open();
  }
  std::string RowColumn(const std::string& column, const std::string& query) {
    return Rows(query, {column}).at(0);
  }
};

const std::string kTwo = test::CliProjectTest::PageText(
    1,
    {test::CliProjectTest::ElementText(1, 2, 30, 40, "\"FillStyle\": \"eFS_Solid\",\n      \"ColorBack\": 3"),
     test::CliProjectTest::ElementText(5, 6, 70, 80)});

TEST_F(PageStoreTest, ImportedElementsAreRowsOfThePageInTheOrderOfTheFile) {
  const ImportResult result = Import(kTwo);
  EXPECT_FALSE(result.replaced);
  EXPECT_EQ(result.elementsBefore, 0u);
  EXPECT_EQ(
      Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"DisplayID", "Type", "Xs", "OrderIndex", "GroupID"}),
      (std::vector<std::string>{"1 1 1 1 -1", "1 1 5 2 -1"}));
}

TEST_F(PageStoreTest, LoadingGivesTheElementsFromTheLowestUp) {
  Import(kTwo);
  Connection().Execute("UPDATE HMI_Elements SET OrderIndex=9 WHERE Xs=1");
  Open(corvane1::ProjectMode::ReadOnly);
  const LoadedPage page = Load();
  ASSERT_EQ(page.elements.size(), 2u);
  EXPECT_EQ(page.elements[0]->Xs(), 5);
  EXPECT_EQ(page.elements[1]->Xs(), 1);
  EXPECT_EQ(page.info.name, "Boiler");
}

TEST_F(PageStoreTest, PropertiesThatTheRowDoesNotKeepComeBack) {
  Import(kTwo);
  Open(corvane1::ProjectMode::ReadOnly);
  const LoadedPage page = Load();
  EXPECT_EQ(page.elements[0]->FillStyle(), eFS_Solid);
  EXPECT_EQ(page.elements[1]->FillStyle(), eFS_Hollow);
}

TEST_F(PageStoreTest, ExportGivesTheImportedBytes) {
  const std::string odd =
      "\xef\xbb\xbf{\"elements\":[{\"dy\":4,\"class\":\"CLSRECTANGLE\",\r\n\t\"penstyle\":1,"
      "\"Xs\":1.0e1,\"ColorFore\":0}],\r\n\"panel\":{\"height\":240,\"width\":320,\"type\":1},"
      "\"page\":1}";
  for (const std::string& text : {kTwo, odd, PageText(1, {}), kTwo + "\n\n"}) {
    Import(text);
    EXPECT_EQ(Export(), text);
    Open();
    EXPECT_EQ(Export(), text);
  }
}

TEST_F(PageStoreTest, ACanonicalFileIsWhatIsExportedWithoutTheKeptSource) {
  Import(kTwo);
  Connection().Execute("DELETE * FROM HostPages");
  Connection().Execute(
      "INSERT INTO HostPages (DisplayID, Name, PanelType, Width, Height, Source, Imported) VALUES "
      "(1, 'Boiler', 1, 320, 240, 'kept', '{}')");
  EXPECT_EQ(Export(), kTwo);
}

TEST_F(PageStoreTest, TheDemoPageIsCanonical) {
  ImportDemo();
  const LoadedPage page = LoadAsFiled();
  EXPECT_EQ(CanonicalPageText(page.info, page.elements), DemoPage());
}

TEST_F(PageStoreTest, AnEditedPageIsExportedInCanonicalForm) {
  Import(
      "{\"page\":1,\"name\":\"Boiler\",\"panel\":{\"type\":1,\"width\":320,\"height\":240},\"elements\":["
      "{\"class\":\"clsRectangle\",\"ColorBack\":3,\"Xs\":7,\"FillStyle\":1},{\"class\":\"clsRectangle\"}]}");
  Session().OpenPage(1);
  const LoadedPage page = Load();
  page.elements[0]->Xs(8);
  SaveElement(Session(), *page.elements[0]);
  EXPECT_EQ(Export(),
            PageText(1, {ElementText(8, 0, 0, 0, "\"FillStyle\": \"eFS_Solid\",\n      \"ColorBack\": 3"),
                         ElementText(0, 0, 0, 0)}));
}

TEST_F(PageStoreTest, AnEditOfANotStoredPropertyIsSeen) {
  const std::string source =
      "{\"page\":1,\"panel\":{\"type\":1,\"width\":3,\"height\":2},\"elements\":["
      "{\"class\":\"clsRectangle\"}]}";
  Import(source);
  Session().OpenPage(1);
  const LoadedPage page = Load();
  page.elements[0]->FillStyle(eFS_Solid);
  SaveElement(Session(), *page.elements[0]);
  EXPECT_NE(Export().find("\"FillStyle\": \"eFS_Solid\""), std::string::npos);
  page.elements[0]->FillStyle(eFS_Hollow);
  SaveElement(Session(), *page.elements[0]);
  EXPECT_EQ(Export(), source);
}

TEST_F(PageStoreTest, AnElementThatCameOrWentIsAnEdit) {
  Import(kTwo);
  Connection().Execute("DELETE * FROM HMI_Elements WHERE Xs=5");
  EXPECT_EQ(
      Export(),
      PageText(1, {ElementText(1, 2, 30, 40, "\"FillStyle\": \"eFS_Solid\",\n      \"ColorBack\": 3")}));
}

TEST_F(PageStoreTest, AnotherOrderIsAnEdit) {
  const std::string source = kTwo + " ";
  Import(source);
  Connection().Execute("UPDATE HMI_Elements SET OrderIndex=9 WHERE Xs=1");
  EXPECT_NE(Export(), source);
}

TEST_F(PageStoreTest, OtherSettingsAreNoEdit) {
  SetInProject(6050, "3");
  const std::string source =
      "{\"page\":1,\"panel\":{\"type\":1,\"width\":3,\"height\":2},\"elements\":["
      "{\"class\":\"clsRectangle\"},{\"class\":\"clsRectangle\",\"PenWidth\":3}]}";
  Import(source);
  SetInProject(6050, "5");
  SetInProject(6051, "7");
  EXPECT_EQ(Export(), source);
  EXPECT_EQ(Load().elements[0]->PenWidth(), 3);
}

TEST_F(PageStoreTest, TheCanonicalFormLeavesOutTheDefaultsOfTheProject) {
  SetInProject(6050, "3");
  Import(PageText(1, {ElementText(1, 1, 1, 1)}));
  SetInProject(6050, "1");
  Connection().Execute("UPDATE HMI_Elements SET Xs=2");
  EXPECT_EQ(Export(), PageText(1, {ElementText(2, 1, 1, 1, "\"PenWidth\": 3")}));
}

TEST_F(PageStoreTest, APropertyThatTheKeptListDoesNotKnowIsNoEdit) {
  Import(kTwo + " ");
  auto kept = HostPages(Connection()).Find(1);
  ASSERT_TRUE(kept);
  const std::string line = "      \"ColorHatch\": 96,\n";
  for (std::size_t at = 0; (at = kept->imported.find(line)) != std::string::npos;)
    kept->imported.erase(at, line.size());
  HostPages(Connection()).Keep(*kept);
  EXPECT_EQ(Export(), kTwo + " ");
}

TEST_F(PageStoreTest, AKeptListThatCannotBeReadIsAnEdit) {
  Import(kTwo + " ");
  auto kept = HostPages(Connection()).Find(1);
  kept->imported = "no JSON";
  HostPages(Connection()).Keep(*kept);
  EXPECT_EQ(Export(), kTwo);
}

TEST_F(PageStoreTest, ImportingAPageAgainReplacesIt) {
  Import(PageText(2, {ElementText(9, 9, 9, 9)}));
  Import(kTwo);
  const std::string other = PageText(1, {ElementText(3, 3, 3, 3)});
  const ImportResult result = Import(other);
  EXPECT_TRUE(result.replaced);
  EXPECT_EQ(result.elementsBefore, 2u);
  EXPECT_EQ(Export(), other);
  EXPECT_EQ(Export(2), PageText(2, {ElementText(9, 9, 9, 9)}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "DisplayID", "Xs", "OrderIndex"}),
            (std::vector<std::string>{"1 2 9 1", "4 1 3 1"}));
  EXPECT_TRUE(Rows("SELECT * FROM HostProperties", {"ElementID"}).empty());
}

TEST_F(PageStoreTest, AnEmptyPageIsReplacedToo) {
  Import(PageText(1, {}));
  const ImportResult result = Import(kTwo);
  EXPECT_TRUE(result.replaced);
  EXPECT_EQ(result.elementsBefore, 0u);
}

TEST_F(PageStoreTest, APageOfAnotherHostIsReplaced) {
  Import(kTwo);
  Connection().Execute("DELETE * FROM HostPages");
  EXPECT_TRUE(Import(kTwo).replaced);
}

TEST_F(PageStoreTest, ReplacingAPageLeavesTheOperandsOfOthers) {
  Import(PageText(2, {ElementText(1, 1, 1, 1, "\"TouchOprndAddr\": 8")}));
  Import(PageText(1, {ElementText(1, 1, 1, 1, "\"VisibleOpAddr\": 9,\n      \"TouchOprndAddr\": 8")}));
  EXPECT_EQ(Rows("SELECT * FROM Operands ORDER BY Address", {"Type", "Address"}),
            (std::vector<std::string>{"1 8", "1 9"}));
  Import(PageText(1, {ElementText(1, 1, 1, 1)}));
  EXPECT_EQ(Rows("SELECT * FROM Operands", {"Type", "Address"}), std::vector<std::string>{"1 8"});
  EXPECT_EQ(Rows("SELECT * FROM HMI_Operands", {"ElementID", "OprndType", "OprndAddr", "OprndPurpose"}),
            std::vector<std::string>{"1 1 8 2"});
}

TEST_F(PageStoreTest, AFailedImportLeavesEverythingAsItWas) {
  const std::string before = PageText(1, {ElementText(1, 1, 1, 1, "\"TouchOprndAddr\": 8")});
  Import(before);
  // The second element finds no unique number any more.
  Connection().Execute("UPDATE Numbers SET Next=2147483646");
  const auto rows = [this] {
    auto all = Rows("SELECT * FROM HMI_Elements", {"ID", "Xs"});
    for (const char* query : {"SELECT * FROM HMI_Operands", "SELECT * FROM HostProperties"}) {
      for (const auto& row : Rows(query, {"ElementID"})) all.push_back(row);
    }
    for (const auto& row : Rows("SELECT * FROM Operands", {"Address"})) all.push_back(row);
    return all;
  };
  const auto rowsBefore = rows();
  const std::string message = test::MessageOf([this] { Import(kTwo); });
  EXPECT_EQ(message, "page file x, element 2 (clsRectangle): overflow: 2147483647 + 1 does not fit 32 bits");
  EXPECT_EQ(rows(), rowsBefore);
  EXPECT_EQ(Export(), before);
  // The connection is of use again.
  Connection().Execute("UPDATE Numbers SET Next=100");
  Import(kTwo);
  EXPECT_EQ(Export(), kTwo);
}

TEST_F(PageStoreTest, AFailedImportLeavesNoTablesOfTheHost) {
  Connection().Execute("INSERT INTO Numbers (Name, Next) VALUES ('GUID', 2147483647)");
  EXPECT_NE(test::MessageOf([this] { Import(kTwo); }), "");
  EXPECT_TRUE(
      Rows("SELECT name FROM sqlite_master WHERE name IN ('HostPages','HostProperties')", {"name"}).empty());
}

TEST_F(PageStoreTest, WrongSettingsAreToldWithTheElement) {
  SetInProject(6050, "thick");
  EXPECT_EQ(
      test::MessageOf([this] { Import(kTwo); }),
      "page file x, element 1 (clsRectangle): setting 6000/6050: type mismatch: \"thick\" is not a number");
}

TEST_F(PageStoreTest, ARowThatDoesNotLoadIsNamed) {
  Import(kTwo);
  Connection().Execute("UPDATE HMI_Elements SET Ys=Null WHERE ID=2");
  EXPECT_EQ(test::MessageOf([this] { Load(); }).substr(0, 74),
            "project p.qz7, row 2 of HMI_Elements: column 'Ys' of HMI_Elements: invalid");
  Connection().Execute("UPDATE HMI_Elements SET Ys=1, Type=99 WHERE ID=2");
  EXPECT_EQ(test::MessageOf([this] { Load(); }),
            "project p.qz7, row 2 of HMI_Elements: there is no class of element type 99");
  Connection().Execute("UPDATE HMI_Elements SET Type=Null WHERE ID=2");
  EXPECT_EQ(test::MessageOf([this] { Load(); }),
            "project p.qz7, row 2 of HMI_Elements: column 'Type' of HMI_Elements: invalid use of Null: a "
            "number was "
            "expected");
}

TEST_F(PageStoreTest, APageFileThatIsNoneIsNotExported) {
  Import(kTwo);
  Connection().Execute("UPDATE HostPages SET Source='rubbish'");
  EXPECT_EQ(test::MessageOf([this] { Export(); }).substr(0, 92),
            "project p.qz7: page 1 of HostPages: column 'Source' of HostPages, line 1, column 1: malforme");
  // The text is of no account once the page has changed.
  Connection().Execute("UPDATE HMI_Elements SET Xs=2 WHERE ID=1");
  EXPECT_EQ(Export().substr(0, 12), kTwo.substr(0, 12));
}

TEST_F(PageStoreTest, AGroupsPlaceThatIsNoneIsNamed) {
  Import(
      R"({"page": 1, "panel": {"type": 1, "width": 9, "height": 9}, "elements": [{"class": "clsGroup"}]})");
  Connection().Execute("UPDATE HostGroups SET OrderIndex='low'");
  EXPECT_EQ(test::MessageOf([this] { Load(); }),
            "project p.qz7, row 1 of HMI_Elements: column 'OrderIndex' of HostGroups: type mismatch: \"low\" "
            "is not "
            "a number");
}

TEST_F(PageStoreTest, TheOnlyPageNeedsNoNumber) {
  Import(PageText(12, {}));
  EXPECT_EQ(ChoosePage(Session(), {}).number, 12);
  EXPECT_EQ(ChoosePage(Session(), 12).number, 12);
}

TEST_F(PageStoreTest, TellsThePagesThatThereAre) {
  EXPECT_EQ(test::MessageOf([this] { ChoosePage(Session(), {}); }), "project p.qz7 has no pages");
  EXPECT_EQ(test::MessageOf([this] { ChoosePage(Session(), 3); }), "project p.qz7 has no pages");
  Import(PageText(12, {}));
  EXPECT_EQ(test::MessageOf([this] { ChoosePage(Session(), 3); }),
            "project p.qz7 has no page 3; there is page 12");
  Import(PageText(4, {}));
  EXPECT_EQ(test::MessageOf([this] { ChoosePage(Session(), 3); }),
            "project p.qz7 has no page 3; there are pages 4, 12");
  EXPECT_EQ(test::MessageOf([this] { ChoosePage(Session(), {}); }),
            "project p.qz7 has several pages (4, 12): choose one with --page");
  EXPECT_EQ(ChoosePage(Session(), 4).number, 4);
}

TEST_F(PageStoreTest, TheExampleOfTheDocumentationIsCanonical) {
  const std::string text = ReadTextFile(QUENZEL7_SOURCE_DIR "/docs/page-files.md", "documentation");
  const std::string begin = "```json\n";
  const auto start = text.find(begin) + begin.size();
  const std::string example = text.substr(start, text.find("```", start) - start);
  Import(example);
  const LoadedPage page = Load();
  EXPECT_EQ(page.elements.size(), 3u);
  EXPECT_EQ(CanonicalPageText(page.info, page.elements), example);
}

using PageStoreTexts = test::LibraryTest;

TEST_F(PageStoreTexts, APageIsExportedAsImportedWhateverTheLibraryGives) {
  const std::string page = PageOf(Text(R"("Txt": "own\r\nlines", "FontNumber": 4, "StorageStringID": 5)"));
  Import(page);
  EXPECT_EQ(Export(), page);
  SetString(5, 1, "boiler", 2);
  EXPECT_EQ(Load().elements.at(0)->Txt(), "boiler");
  EXPECT_EQ(LoadAsFiled().elements.at(0)->Txt(), "own\r\nlines");
  EXPECT_EQ(Export(), page);
  Import(page);
  SetString(5, 1, "other", 3);
  EXPECT_EQ(Export(), page);
  Open();
  EXPECT_EQ(Export(), page);
}

TEST_F(PageStoreTexts, TheCanonicalFormTellsTextAndFontOfTheRow) {
  SetString(5, 1, "boiler", 2);
  const std::string canonical = PageText(1, {ElementText(5, 6, 100, 20,
                                                         "\"Txt\": \"own\\r\\nlines\",\n"
                                                         "      \"FontNumber\": 4,\n"
                                                         "      \"StorageStringID\": 5")});
  std::string text = canonical;
  text.replace(text.find("clsRectangle"), 12, "clsText");
  Import(text + " ");
  Connection().Execute("UPDATE HMI_Elements SET Xs=6");
  text.replace(text.find("\"Xs\": 5"), 7, "\"Xs\": 6");
  EXPECT_EQ(Export(), text);
}

TEST_F(PageStoreTexts, ATouchableTextIsExportedWithThePlaceInTheTabOrderThatItGotOnceThePageHasChanged) {
  const std::string page =
      PageOf(Text(R"("TouchOprndAddr": 7)") + ", " + Text(R"("TouchOprndAddr": 8, "TabIndex": 40)") + ", " +
             Text(R"("TabIndex": 9)"));
  Import(page);
  EXPECT_EQ(Export(), page);
  const LoadedPage loaded = Load();
  EXPECT_EQ(loaded.elements.at(0)->TabIndex(), 0);
  EXPECT_EQ(loaded.elements.at(1)->TabIndex(), 40);
  EXPECT_EQ(loaded.elements.at(2)->TabIndex(), 255);
  const std::string canonical = CanonicalPageText(loaded.info, loaded.elements);
  EXPECT_NE(canonical.find("\"TabIndex\": 0"), std::string::npos);
  EXPECT_NE(canonical.find("\"TabIndex\": 40"), std::string::npos);
  EXPECT_EQ(canonical.find("255"), std::string::npos);
}

TEST_F(PageStoreTexts, ATouchThatDrivesNoOperandGetsANewPlaceInTheTabOrderAndAFrameHasOneLikeATextHas) {
  std::string frame = Text(R"("TouchOprndAddr": 8)");
  frame.replace(frame.find("clsText"), 7, "clsFrame");
  Import(PageOf(Text(R"("TouchOprndAddr": -2, "TabIndex": 40)") + ", " + frame));
  const LoadedPage loaded = Load();
  EXPECT_EQ(loaded.elements.at(0)->TabIndex(), 0);
  EXPECT_EQ(loaded.elements.at(1)->Class().name, "clsFrame");
  EXPECT_EQ(loaded.elements.at(1)->TabIndex(), 1);
}

TEST_F(PageStoreTexts, EachLineOutsideTheCodePageIsToldOnceByImportExportAndLoading) {
  const std::string box = "Language is not supported: Tessaline can't handle Multibyte chars\n";
  const std::string page = PageOf(Text("\"Txt\": \"one\\r\\n\u0416\\r\\n\u0428\""));
  Import(page);
  EXPECT_EQ(Boxes(), box + box);
  // Replacing it is as the first time.
  Import(page);
  EXPECT_EQ(Boxes(), box + box);
  EXPECT_EQ(Export(), page);
  EXPECT_EQ(Boxes(), box + box);
  Load();
  EXPECT_EQ(Boxes(), box + box);
}

/// Values of a property's type that are worth a try, as a page file writes them.
std::vector<Json> ValuesFor(const automation::TypeInfo& type) {
  using automation::VariantKind;
  if (type.enumeration) {
    std::vector<Json> values{1000};
    for (const auto& member : type.enumeration->members) values.push_back(member.name);
    return values;
  }
  switch (type.kind) {
    case VariantKind::Byte:
      return {0, 1, 255};
    case VariantKind::Integer:
      return {-32768, -1, 0, 1, 32767};
    case VariantKind::Long:
      return {std::numeric_limits<Long>::min(), -2, -1, 0, 1, 96, 255, std::numeric_limits<Long>::max()};
    case VariantKind::Single:
    case VariantKind::Double:
      return {-1.5, 0.0, 0.1, 1e30};
    case VariantKind::Boolean:
      return {true, false};
    default:
      return {"", "text", "Käse '\"\n"};
  }
}

/// Whether the element has a text. One that has takes no place beyond 32 bits when it is fitted, and has a
/// place in the tab order, of 8 bits, while it is touchable.
bool BearsText(const automation::ClassInfo& elementClass) {
  return elementClass.Default().Find("TabIndex") != nullptr;
}

std::vector<Json> ValuesFor(const automation::ClassInfo& elementClass, const automation::Member& property) {
  if (BearsText(elementClass) && IsPositionProperty(property.name))
    return {-1000000000, -1, 0, 1, 1000000000};
  if (property.name == "TabIndex") return {0, 1, 254};
  if (property.name == kTypeProperty) {
    std::vector<Json> types;
    for (const auto& type : property.type.enumeration->members) {
      if (NewHandler(type.value)) types.push_back(type.name);
    }
    return types;
  }
  // Painting a variable hands them on in 16 bits.
  if (IsVariableClass(elementClass) && (property.name == "Flat3D" || property.name == "Alignment"))
    return {-32768, -1, 0, 1, 96, 255, 32767};
  // The states of the text for a bit that a variable without a type is.
  if (property.name == "DefaultDisplay") return {1, 2};
  return ValuesFor(property.type);
}

TEST_F(PageStoreTest, EveryPropertyOfEveryClassComesBackWithEveryValue) {
  struct Trial {
    const automation::Member* property;
    Json value;
  };
  for (const automation::ClassInfo* elementClass : ElementClasses::All().Classes()) {
    std::vector<Trial> trials;
    Json page = {{"page", 1}, {"panel", {{"type", 1}, {"width", 320}, {"height", 240}}}};
    page["elements"] = Json::array();
    for (const automation::Member* property : PageProperties(*elementClass)) {
      for (const Json& value : ValuesFor(*elementClass, *property)) {
        trials.push_back({property, value});
        Json element = {{"class", elementClass->name}};
        element[std::string(property->name)] = value;
        if (property->name == "TabIndex") element["TouchOprndAddr"] = 7;
        page["elements"].push_back(element);
      }
    }
    ASSERT_EQ(trials.empty(), elementClass->name == "clsGroup");
    if (trials.empty()) continue;
    const std::string text = page.dump();
    Import(text);
    Open(corvane1::ProjectMode::ReadOnly);
    const LoadedPage loaded = LoadAsFiled();
    ASSERT_EQ(loaded.elements.size(), trials.size());
    for (std::size_t index = 0; index < trials.size(); ++index) {
      ItfHmiElement& element = *loaded.elements[index];
      ASSERT_EQ(&element.Class(), elementClass);
      const ElementRef fresh =
          IsVariable(element)
              ? NewVariable(automation::To<Long>(automation::GetByName(element, kTypeProperty)))
              : ElementClasses::Create(*elementClass);
      for (const automation::Member* property : PageProperties(*elementClass)) {
        const bool isTouch = property->name == "TouchOprndAddr" || property->name == "TabIndex";
        if (BearsText(*elementClass) && isTouch && property != trials[index].property) continue;
        // How transparent a picture is stands beside it: a button without one has none.
        const bool isKept = elementClass->name != "clsButton" || property->name != "TransparencyLevel";
        const auto found = property->get(element);
        const auto expected = isKept && property == trials[index].property
                                  ? ValueFromJson(property->type, trials[index].value)
                                  : property->get(*fresh);
        EXPECT_EQ(found, expected) << elementClass->name << "." << property->name << " after "
                                   << trials[index].property->name << " = " << trials[index].value;
      }
    }
    EXPECT_EQ(Export(), text);
    // The canonical form says the same.
    const std::string canonical = CanonicalPageText(loaded.info, loaded.elements);
    Open();
    Import(canonical);
    EXPECT_EQ(CanonicalPageText(loaded.info, LoadAsFiled().elements), canonical);
  }
}

}  // namespace
}  // namespace quenzel7::cli
