#include "hosts/cli/variable_settings.h"

#include <gtest/gtest.h>

#include "hosts/cli/element_tree.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/tree_text.h"
#include "variables/graphs/bargraph.h"
#include "variables/text/display_string.h"
#include "variables/text/list_text.h"
#include "variables/text/numeric.h"
#include "variables/var_element.h"
#include "variables/var_types.h"

namespace quenzel7::cli {
namespace {

class VariableSettingsTest : public test::CliProjectTest {
 protected:
  static std::string Page(const std::string& elements) {
    return R"({"page":1,"panel":{"type":1,"width":320,"height":240},"elements":[)" + elements + "]}";
  }
  /// A variable of that type with further members.
  static std::string Variable(const std::string& type, const std::string& more) {
    return R"({"class":"clsVar","VarType":")" + type + R"(","Dx":100,"Dy":24)" + more + "}";
  }
  static std::string WithHandler(const std::string& type, const std::string& handler) {
    return Variable(type, R"(,"Handler":)" + handler);
  }
  static std::shared_ptr<clsVar> Made(const std::string& element) {
    const PageFile page = ReadPageFile(Page(element), "page file x");
    return std::dynamic_pointer_cast<clsVar>(MakeElement(page.elements.at(0)));
  }
  template <class Handler>
  static std::shared_ptr<Handler> HandlerIn(clsVar& variable) {
    return std::dynamic_pointer_cast<Handler>(HandlerOf(variable));
  }
  static std::string MessageOfMaking(const std::string& element) {
    return test::MessageOf([&] { Made(element); });
  }
  static std::string MessageOfHandler(const std::string& type, const std::string& handler) {
    return MessageOfMaking(WithHandler(type, handler));
  }
  std::string Canonical() {
    const LoadedPage page = LoadAsFiled();
    return CanonicalPageText(page.info, page.elements);
  }
  /// Imports, and requires that the file comes back, that its canonical form says the same and comes back,
  /// and gives the settings under the key as the canonical form has them.
  Json RoundTrip(const std::string& element, std::string_view key = kHandlerKey) {
    Import(Page(element));
    EXPECT_EQ(Export(), Page(element));
    const std::string canonical = Canonical();
    Import(canonical);
    EXPECT_EQ(Export(), canonical);
    EXPECT_EQ(Canonical(), canonical);
    const Json json = ParseJson(canonical, "x");
    const Json& variable = json["elements"][0];
    return variable.contains(key) ? variable[std::string(key)] : Json();
  }
};

TEST_F(VariableSettingsTest, KnowsVariablesAndTheKeysOfTheirSettings) {
  EXPECT_TRUE(IsVariable(*NewVariable(eVT_Numeric)));
  EXPECT_FALSE(IsVariable(*ElementClasses::Create(ElementClasses::All().Named("clsText"))));
  EXPECT_EQ(SettingsKey("handler"), "Handler");
  EXPECT_EQ(SettingsKey("LISTTEXT"), "ListText");
  EXPECT_EQ(SettingsKey("ListTexts"), "");
}

TEST_F(VariableSettingsTest, NewVariablesAreTypedAndWithoutAFontWhereNothingHasOne) {
  const auto number = std::dynamic_pointer_cast<clsVar>(NewVariable(eVT_Numeric));
  EXPECT_EQ(number->VarType(), eVT_Numeric);
  EXPECT_EQ(number->FontNumber(), 1);
  EXPECT_EQ(NewVariable(eVT_BarGraph)->FontNumber(), 0);
  EXPECT_EQ(NewVariable(eVT_Meter)->FontNumber(), 1);
  EXPECT_EQ(HandlerOf(*NewVariable(eVT_Timer)), nullptr);
}

TEST_F(VariableSettingsTest, TheTypeIsSetBeforeAllThatDependsOnIt) {
  const auto made =
      Made(R"({"class":"clsVar","OperandAddress":7,"OperandType":3,"Flat3D":1,"VarType":"eVT_ListText"})");
  EXPECT_EQ(made->VarType(), eVT_ListText);
  EXPECT_EQ(made->OperandType(), 3);
  EXPECT_EQ(made->OperandAddress(), 7);
  EXPECT_EQ(made->Flat3D(), 1);
}

TEST_F(VariableSettingsTest, AVariableWithoutATypeShowsATextForABit) {
  const auto made = Made(R"({"class":"clsVar","Flat3D":1})");
  EXPECT_EQ(made->VarType(), eVT_BinaryText);
  EXPECT_EQ(ListTextsOf(*HandlerOf(*made)).size(), 2u);
}

TEST_F(VariableSettingsTest, ANumberTakesItsSettings) {
  const auto made = Made(WithHandler(
      "eVT_Numeric", R"({"format":"99.9","BaseFormat":"ebf_decimal","IsUnsignedFormat":true,"Postfix":"bar",
      "ArrowsIncrementValue":4,"EntryLimitMinOpType":3,"EntryLimitMinOpAddress":8,
      "ListText":{"Txt":"t","StorageStringID":5},"DrawingElement":{"ColorFore":3}})"));
  const auto number = HandlerIn<clsVarNumeric>(*made);
  ASSERT_TRUE(number);
  EXPECT_EQ(number->Format(), "99.9");
  EXPECT_TRUE(number->IsUnsignedFormat());
  EXPECT_EQ(number->ArrowsIncrementValue(), 4);
  EXPECT_EQ(number->EntryLimitMinOpType(), 3);
  EXPECT_EQ(number->EntryLimitMinOpAddress(), 8);
  EXPECT_EQ(number->ListText()->Txt(), "t");
  EXPECT_EQ(number->ListText()->StorageStringID(), 5);
  EXPECT_EQ(number->DrawingElement()->Txt(), "99.9 bar");
  EXPECT_EQ(number->DrawingElement()->ItfHmiElement::ColorFore(), 3);
}

TEST_F(VariableSettingsTest, AListIsTheOneOfThePageFileAndShowsItsState) {
  const auto made = Made(Variable("eVT_ListText", R"(,"DefaultDisplay":2,"FontNumber":6,
      "Handler":{"ListTexts":[{"Txt":"a"},{"Txt":"b","ColorBack":9},{"ColorFore":8}]})"));
  const auto list = HandlerIn<clsVarListText>(*made);
  ASSERT_EQ(list->ListCount(), 3);
  EXPECT_EQ(list->ListTexts(1)->Txt(), "a");
  EXPECT_EQ(list->ListTexts(1)->ColorBack(), 103);
  EXPECT_EQ(list->ListTexts(3)->Txt(), "");
  EXPECT_EQ(list->ListTexts(3)->ColorFore(), 8);
  EXPECT_EQ(list->DrawingElement()->Txt(), "b");
  EXPECT_EQ(list->DrawingElement()->ColorBack(), 9);
  EXPECT_EQ(list->DrawingElement()->FontNumber(), 6);
}

TEST_F(VariableSettingsTest, WhatIsSaidOfTheDrawingElementStandsAboveWhatFollows) {
  const auto made =
      Made(WithHandler("eVT_DisplayString", R"({"StringPattern":"p","DrawingElement":{"Txt":"own"}})"));
  EXPECT_EQ(HandlerIn<clsVarDisplayString>(*made)->DrawingElement()->Txt(), "own");
  const auto plain = Made(WithHandler("eVT_DisplayString", R"({"StringPattern":"p"})"));
  EXPECT_EQ(HandlerIn<clsVarDisplayString>(*plain)->DrawingElement()->Txt(), "p");
}

TEST_F(VariableSettingsTest, NumbersComeBack) {
  const Json handler = RoundTrip(Variable(
      "eVT_Numeric", R"(,"OperandType":3,"OperandAddress":5,"Handler":{"KeyboardType":1,"Format":"9.9",
      "UseEntryLimits":true,"LinearDmaxOpType":3,"LinearDmaxOpAddress":4,"StorageLibNum":2,
      "ListText":{"StorageFont":6},"DrawingElement":{"ColorFore":3}})"));
  EXPECT_EQ(handler.dump(),
            R"({"Format":"9.9","KeyboardType":)" + handler["KeyboardType"].dump() +
                R"(,"UseEntryLimits":true,"LinearDmaxOpType":3,"LinearDmaxOpAddress":4,"StorageLibNum":2,)"
                R"("ListText":{"StorageFont":6},"DrawingElement":{"ColorFore":3}})");
}

TEST_F(VariableSettingsTest, PasswordsBarsAndStringsComeBack) {
  EXPECT_EQ(RoundTrip(WithHandler("eVT_Password", R"({"IsPassword":true})")).dump(),
            R"({"IsPassword":true})");
  EXPECT_EQ(RoundTrip(WithHandler("eVT_BarGraph",
                                  R"({"ColorFore":9,"BargraphType":"eBD_RightToLeft","Frame":false})"))
                .dump(),
            R"({"Frame":false,"BargraphType":"eBD_RightToLeft","ColorFore":9})");
  EXPECT_EQ(RoundTrip(WithHandler("eVT_DisplayString",
                                  R"({"VectorLength":4,"KeyboardsLanguage":2,"DrawingElement":{"Txt":"x"}})"))
                .at("DrawingElement")
                .dump(),
            R"({"Txt":"x"})");
}

TEST_F(VariableSettingsTest, ListsComeBackAsTheyDifferFromNewOnes) {
  EXPECT_EQ(
      RoundTrip(WithHandler("eVT_BinaryText", R"({"ListTexts":[{},{"Txt":"on"}],"Switch":true})")).dump(),
      R"({"Switch":true,"ListTexts":[{},{"Txt":"on"}]})");
  EXPECT_EQ(
      RoundTrip(WithHandler("eVT_RangeTexts", R"({"ListTexts":[{"FromOpType":3,"ToOpAddress":4}]})")).dump(),
      R"({"ListTexts":[{"FromOpType":3,"ToOpAddress":4}]})");
  EXPECT_EQ(RoundTrip(WithHandler("eVT_ListText", R"({"ListTexts":[{}]})")), Json());
  EXPECT_EQ(RoundTrip(WithHandler("eVT_ListText", R"({"ListTexts":[{},{}]})")).dump(),
            R"({"ListTexts":[{},{}]})");
}

TEST_F(VariableSettingsTest, EveryTypeOfNoSettingsComesBackWithoutThem) {
  for (const auto& type : automation::EnumInfoOf<enVarType>::value.members) {
    if (!NewHandler(type.value)) continue;
    const std::string name(type.name);
    EXPECT_EQ(RoundTrip(Variable(name, "")), Json()) << name;
    const Json element = ParseJson(Canonical(), "x")["elements"][0];
    EXPECT_EQ(element.dump(),
              R"({"class":"clsVar","Xs":0,"Ys":0,"Dx":100,"Dy":24,"VarType":")" + name + "\"}");
  }
}

TEST_F(VariableSettingsTest, AnEmptyListIsTakenAndShowsNoState) {
  const std::string page = WithHandler("eVT_ListText", R"({"ListTexts":[]})");
  EXPECT_EQ(MessageOfMaking(page), "property \"Handler.ListTexts\" must have a text at least, it has none");
  const ElementRef variable = NewVariable(eVT_ListText);
  HandlerIn<clsVarListText>(static_cast<clsVar&>(*variable))->Clear();
  EXPECT_EQ(SettingsOf(*variable, kHandlerKey, NewVariable(eVT_ListText).get()).dump(),
            R"({"ListTexts":[]})");
}

TEST_F(VariableSettingsTest, TheStringOfTheVariableItselfComesBack) {
  EXPECT_EQ(RoundTrip(Variable("eVT_BarGraph", R"(,"ListText":{"StorageStringID":4,"StorageFont":3})"),
                      kListTextKey)
                .dump(),
            R"({"StorageStringID":4,"StorageFont":3})");
  EXPECT_EQ(MessageOfMaking(Variable("eVT_BarGraph", R"(,"ListText":{"Txt":"a"})")),
            "property \"ListText.Txt\" cannot be set in a page file: the project does not keep it");
}

TEST_F(VariableSettingsTest, ErrorsNameThePathOfTheProperty) {
  EXPECT_EQ(MessageOfHandler("eVT_Numeric", R"({"Fromat":"9"})"),
            "property \"Handler.Fromat\" does not exist; nearest is \"Format\"");
  EXPECT_EQ(MessageOfHandler("eVT_ListText", R"({"ListTexts":[{},{"ColorBack":1.5}]})"),
            "property \"Handler.ListTexts[2].ColorBack\" must be a whole number from -2147483648 to "
            "2147483647, 1.5 was given");
  EXPECT_EQ(MessageOfHandler("eVT_ListText", R"({"ListTexts":[{"FromOpType":1}]})"),
            "property \"Handler.ListTexts[1].FromOpType\" cannot be set in a page file: the project does not "
            "keep it");
  EXPECT_EQ(MessageOfHandler("eVT_ListText", R"({"ListText":[]})"),
            "property \"Handler.ListText\" does not exist; nearest is \"ListTexts\"");
  EXPECT_EQ(MessageOfHandler("eVT_ListText", R"({"Clear":1})").substr(0, 40),
            "property \"Handler.Clear\" does not exist;");
  EXPECT_EQ(MessageOfHandler("eVT_ListText", R"({"ListTexts":{}})"),
            "property \"Handler.ListTexts\" must be an array, {} was given");
  EXPECT_EQ(MessageOfHandler("eVT_ListText", R"({"ListTexts":[3]})"),
            "property \"Handler.ListTexts[1]\" must be an object, 3 was given");
  EXPECT_EQ(MessageOfHandler("eVT_ListText", "5"), "property \"Handler\" must be an object, 5 was given");
  EXPECT_EQ(MessageOfHandler("eVT_Numeric", R"({"Format":"9","format":"9"})"),
            "property \"Handler.format\" is given twice");
  EXPECT_EQ(MessageOfHandler("eVT_Numeric", R"({"DescriptionFontNumber":2})"),
            "property \"Handler.DescriptionFontNumber\" cannot be set in a page file: the project does not "
            "keep it");
  EXPECT_EQ(MessageOfHandler("eVT_Numeric", R"({"DrawingElement":{"Flat3D":1}})"),
            "property \"Handler.DrawingElement.Flat3D\" cannot be set in a page file: the project does not "
            "keep it");
}

TEST_F(VariableSettingsTest, ABitHasTwoTexts) {
  const auto given = [](const std::string& texts) {
    return MessageOfHandler("eVT_BinaryText", R"({"ListTexts":[)" + texts + "]}");
  };
  const std::string path = "property \"Handler.ListTexts\": ";
  EXPECT_EQ(given(""), path + "0 texts were given, two texts are expected");
  EXPECT_EQ(given("{}"), path + "1 text was given, two texts are expected");
  EXPECT_EQ(given("{},{},{}"), path + "3 texts were given, two texts are expected");
  EXPECT_NO_THROW(Made(WithHandler("eVT_BinaryText", R"({"ListTexts":[{},{}]})")));
  for (const char* type : {"eVT_ListText", "eVT_RangeTexts"}) {
    const auto made = Made(WithHandler(type, R"({"ListTexts":[{},{},{}]})"));
    EXPECT_EQ(ListTextsOf(*HandlerOf(*made)).size(), 3u) << type;
    EXPECT_FALSE(IsListOfBit(*HandlerOf(*made))) << type;
  }
  EXPECT_TRUE(IsListOfBit(*HandlerOf(*NewVariable(eVT_BinaryText))));
  EXPECT_FALSE(IsListOfBit(*HandlerOf(*NewVariable(eVT_Numeric))));
}

TEST_F(VariableSettingsTest, AListThatIsTooLongIsTold) {
  const auto list = [](std::size_t texts) {
    std::string json;
    for (std::size_t text = 0; text < texts; ++text) json += text == 0 ? "{}" : ",{}";
    return WithHandler("eVT_ListText", R"({"ListTexts":[)" + json + "]}");
  };
  EXPECT_EQ(MessageOfMaking(list(65538)),
            "property \"Handler.ListTexts\": 65538 texts were given, 65536 are the most");
  EXPECT_EQ(MessageOfMaking(list(65537)),
            "property \"Handler.ListTexts\": 65537 texts were given, 65536 are the most");
  EXPECT_EQ(HandlerIn<clsVarListText>(*Made(list(65536)))->ListCount(), 65536);
}

TEST_F(VariableSettingsTest, StyleAndAlignmentHaveThe16BitsThatPaintingHandsOn) {
  for (const std::string property : {"Flat3D", "Alignment"}) {
    const auto with = [&property](const std::string& number) {
      return R"({"class":"clsVar",")" + property + "\":" + number + "}";
    };
    for (const char* number : {"-32769", "32768", "40000"}) {
      EXPECT_EQ(MessageOfMaking(with(number)), "property \"" + property +
                                                   "\" must be a whole number from -32768 to 32767, " +
                                                   number + " was given");
    }
    EXPECT_NO_THROW(Made(with("32767")));
    EXPECT_NO_THROW(Made(with("-32768")));
  }
}

TEST_F(VariableSettingsTest, WhatLoadingReplacesOfTheDrawingElementIsRefused) {
  const auto message = [](const std::string& property, const std::string& source) {
    return "property \"Handler.DrawingElement." + property +
           "\" would be replaced when the variable is loaded: it comes from " + source;
  };
  const std::string handler = "the other settings of the handler";
  const std::string font = "FontNumber of the variable or the font of its string";
  EXPECT_EQ(MessageOfHandler("eVT_Numeric", R"({"DrawingElement":{"txt":"own"}})"), message("Txt", handler));
  EXPECT_EQ(MessageOfHandler("eVT_Numeric", R"({"DrawingElement":{"FontNumber":6}})"),
            message("FontNumber", font));
  for (const char* type : {"eVT_BinaryText", "eVT_ListText", "eVT_RangeTexts"}) {
    EXPECT_EQ(MessageOfHandler(type, R"({"DrawingElement":{"Txt":"own"}})"), message("Txt", handler)) << type;
    EXPECT_EQ(MessageOfHandler(type, R"({"DrawingElement":{"FontNumber":6}})"), message("FontNumber", font))
        << type;
    EXPECT_EQ(MessageOfHandler(type, R"({"DrawingElement":{"ColorBack":9}})"),
              message("ColorBack", "ColorBack of the text that is shown"))
        << type;
  }
}

TEST_F(VariableSettingsTest, WhatLoadingLeavesOfTheDrawingElementIsTaken) {
  EXPECT_EQ(RoundTrip(WithHandler("eVT_ListText", R"({"DrawingElement":{"ColorFore":8}})")).dump(),
            R"({"DrawingElement":{"ColorFore":8}})");
  // Nothing is made from a string that is not there.
  EXPECT_EQ(
      RoundTrip(WithHandler("eVT_Numeric", R"({"StorageText":-1,"DrawingElement":{"Txt":"own"}})")).dump(),
      R"({"StorageText":-1,"DrawingElement":{"Txt":"own"}})");
  // What it will be anyway.
  const auto made =
      Made(Variable("eVT_ListText",
                    R"(,"FontNumber":6,"Handler":{"ListTexts":[{"Txt":"a"}],"DrawingElement":{"Txt":"a"}})"));
  EXPECT_EQ(HandlerIn<clsVarListText>(*made)->DrawingElement()->Txt(), "a");
}

TEST_F(VariableSettingsTest, OnlyPropertiesOfVariablesHaveSettings) {
  const auto read = [](const std::string& element) {
    return test::MessageOf([&] { ReadPageFile(Page(element), "page file x"); });
  };
  EXPECT_EQ(read(R"({"class":"clsText","Handler":{}})").substr(0, 70),
            "page file x, element 1 (clsText): property \"Handler\" does not exist; n");
  EXPECT_EQ(read(R"({"class":"clsVar","Handlre":{}})"),
            "page file x, element 1 (clsVar): property \"Handlre\" does not exist; nearest is \"Handler\"");
  EXPECT_EQ(read(R"({"class":"clsVar","Handler":{},"handler":{}})"),
            "page file x, element 1 (clsVar): property \"handler\" is given twice");
  EXPECT_EQ(read(R"({"class":"clsVar","TransparencyLevel":1})"),
            "page file x, element 1 (clsVar): property \"TransparencyLevel\" cannot be set in a page file");
  EXPECT_EQ(read(R"({"class":"clsVar","HatchStyle":1})"),
            "page file x, element 1 (clsVar): property \"HatchStyle\" cannot be set in a page file");
}

TEST_F(VariableSettingsTest, TypesAndStatesThatAreNotThereAreTold) {
  const std::string types =
      "property \"VarType\" must be a type that there is a handler for (eVT_BinaryText, eVT_ListText, "
      "eVT_Numeric, eVT_BarGraph, eVT_RangeTexts, eVT_Password, eVT_DisplayString), it is ";
  EXPECT_EQ(MessageOfMaking(Variable("eVT_Timer", "")), types + "\"eVT_Timer\"");
  EXPECT_EQ(MessageOfMaking(R"({"class":"clsVar","VarType":99})"), types + "99");
  for (const char* state : {"0", "3"}) {
    EXPECT_EQ(MessageOfMaking(R"({"class":"clsVar","DefaultDisplay":)" + std::string(state) + "}"),
              "property \"DefaultDisplay\" must be the number of a text of the list, 1 to 2, it is " +
                  std::string(state));
  }
}

TEST_F(VariableSettingsTest, WhatARowTellsOfTypeAndStateIsToldOnLoading) {
  Import(Page(Variable("eVT_ListText", "")));
  const auto loading = [this](const std::string& column) {
    Connection().Execute("UPDATE HMI_Elements SET " + column);
    return test::MessageOf([this] { Load(); });
  };
  EXPECT_EQ(
      loading("DefaultDisplay=2"),
      "project p.qz7, row 1 of HMI_Elements: property \"DefaultDisplay\" must be the number of a text of "
      "the list, 1 to 1, it is 2");
  EXPECT_EQ(loading("DefaultDisplay=1, Xs='a'").substr(0, 40), "project p.qz7, row 1 of HMI_Elements: co");
  EXPECT_EQ(loading("Xs=1, VarType=7").substr(0, 80),
            "project p.qz7, row 1 of HMI_Elements: property \"VarType\" must be a type that the");
}

TEST_F(VariableSettingsTest, VariablesLieOnTopInTheOrderOfTheFile) {
  const std::string variable = R"({"class":"clsVar","Xs":1},{"class":"clsVar","Xs":2})";
  const std::string page = Page(variable + R"(,{"class":"clsLine","Xs":3},{"class":"clsGroup","elements":[)" +
                                variable + R"(]},{"class":"clsGroup","elements":[)" + variable +
                                R"(,{"class":"clsLine","Xs":4}]},{"class":"clsLine","Xs":5})");
  Import(page);
  const std::string tree = test::TreeText(Load().elements);
  EXPECT_EQ(tree,
            "clsLine 3, clsGroup [clsLine 4, clsVar 1, clsVar 2], clsLine 5, clsVar 1, clsVar 2, clsGroup "
            "[clsVar 1, clsVar 2]");
  EXPECT_EQ(Export(), page);
  const std::string canonical = Canonical();
  Import(canonical);
  EXPECT_EQ(test::TreeText(Load().elements), tree);
  EXPECT_EQ(Canonical(), canonical);
}

TEST_F(VariableSettingsTest, OperandsOfTheVariableAndOfItsHandlerGetRows) {
  Import(Page(
      Variable("eVT_BarGraph", R"(,"OperandType":3,"OperandAddress":5,"TouchOprndAddr":6,"EnabledOpAddr":7,
      "VisibleOpAddr":8,"HighlightOpAddr":9,"KeypadSuccessOpAddr":10,
      "Handler":{"MinOpType":3,"MinOpAddress":11,"MaxOpAddress":12})")));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Operands ORDER BY OprndPurpose, OprndAddr",
                 {"ElementID", "OprndType", "OprndAddr", "OprndPurpose"}),
            (std::vector<std::string>{"1 3 5 1", "1 1 6 2", "1 3 11 3", "1 1 7 4", "1 1 8 5", "1 1 9 6",
                                      "1 1 10 7"}));
  EXPECT_EQ(Rows("SELECT * FROM Operands WHERE Type=3 ORDER BY Address", {"Address"}),
            (std::vector<std::string>{"5", "11"}));
}

TEST_F(VariableSettingsTest, SettingsAreToldByTheirPaths) {
  const auto settings =
      SettingsByPath("Handler", Json::parse(R"({"A":1,"L":[{"T":"x"},{}],"N":null,"D":{"C":true}})"));
  ASSERT_EQ(settings.size(), 3u);
  EXPECT_EQ(settings[0].path + " " + settings[0].value, "Handler.A 1");
  EXPECT_EQ(settings[1].path + " " + settings[1].value, "Handler.L[1].T \"x\"");
  EXPECT_EQ(settings[2].path + " " + settings[2].value, "Handler.D.C true");
}

}  // namespace
}  // namespace quenzel7::cli
