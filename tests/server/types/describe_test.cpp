#include "server/types/describe.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "server/types/identifiers.h"
#include "tests/server/types/further_class.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using Json = nlohmann::ordered_json;

Json Described(std::string_view name) { return Json::parse(Describe(name, test::FurtherClasses())); }

TEST(Describe, AClassTellsItsNamesNumberAndInterfaces) {
  EXPECT_EQ(Described("clsrectangle")["classes"].dump(),
            R"j([{"name":"clsRectangle","progid":"Quenzel7.clsRectangle",)j"
            R"j("clsid":"{AC2B92BB-C03D-5AB4-8DCD-129F2D8CB604}","creatable":true,)j"
            R"j("interfaces":["_clsRectangle","ItfHmiElement"]}])j");
}

TEST(Describe, OnlyClassesOfTheTableAreCreatable) {
  EXPECT_EQ(Described("Collection")["classes"][0]["creatable"], false);
  EXPECT_EQ(Described("Station")["classes"][0]["creatable"], false);
}

TEST(Describe, AnInterfaceTellsItsSlotsAndItsMembersWithAllThatTheyAre) {
  const Json json = Described("_Station");
  EXPECT_EQ(json["classes"].dump(), "[]");
  ASSERT_EQ(json["interfaces"].size(), 1u);
  const Json& interface = json["interfaces"][0];
  EXPECT_EQ(interface["name"], "_Station");
  EXPECT_EQ(interface["iid"], GuidText(InterfaceId("_Station")));
  EXPECT_EQ(
      interface["slots"].dump(),
      R"j(["get Height() As Long","get Now() As enWeather","put Height(Long)","get Chart() As Byte()",)j"
      R"j("putref Owner(Object)","get Owner() As Object","call Of(String) As Variant",)j"
      R"j("get _NewEnum() As Object",)j"
      R"j("call Measure(enWeather, ByRef Long, clsRectangle, [Variant], [Long])"])j");
  const char* const kMembers[] = {
      R"j({"name":"Height","id":1,"kind":"property","type":"Long","get":true,"put":true,"putref":false,)j"
      R"j("mark":"Identity","parameters":[],"slots":["get Height() As Long","put Height(Long)"],)j"
      R"j("doc":"In metres."})j",
      R"j({"name":"Now","id":2,"kind":"property","type":"Long","enumeration":"enWeather","get":true,)j"
      R"j("put":false,"putref":false,"mark":"NotStored","parameters":[],"slots":["get Now() As enWeather"],)j"
      R"j("doc":"Fine | foul."})j",
      R"j({"name":"Chart","id":3,"kind":"property","type":"Byte()","get":true,"put":false,"putref":false,)j"
      R"j("mark":"NotCarried","parameters":[],"slots":["get Chart() As Byte()"],"doc":"A picture."})j",
      R"j({"name":"Owner","id":4,"kind":"property","type":"Object","get":true,"put":false,"putref":true,)j"
      R"j("parameters":[],"slots":["putref Owner(Object)","get Owner() As Object"],"doc":"Whose it is."})j",
      R"j({"name":"Of","id":0,"kind":"method","type":"Variant","get":false,"put":false,"putref":false,)j"
      R"j("role":"value","parameters":[{"name":"name","type":"String","byref":false,"optional":false}],)j"
      R"j("slots":["call Of(String) As Variant"],"doc":"A reading."})j",
      R"j({"name":"_NewEnum","id":-4,"kind":"property","type":"Object","get":true,"put":false,"putref":false,)j"
      R"j("role":"enumerator","mark":"Transient","parameters":[],"slots":["get _NewEnum() As Object"],)j"
      R"j("doc":"All readings."})j",
      R"j({"name":"Measure","id":7,"kind":"method","type":"","get":false,"put":false,"putref":false,)j"
      R"j("parameters":[)j"
      R"j({"name":"sky","type":"Long","enumeration":"enWeather","byref":false,"optional":false},)j"
      R"j({"name":"result","type":"Long","byref":true,"optional":false},)j"
      R"j({"name":"frame","type":"clsRectangle","byref":false,"optional":false},)j"
      R"j({"name":"unit","type":"Variant","byref":false,"optional":true},)j"
      R"j({"name":"times","type":"Long","byref":false,"optional":true,"default":7}],)j"
      R"j("slots":["call Measure(enWeather, ByRef Long, clsRectangle, [Variant], [Long])"],)j"
      R"j("doc":"Measures."})j",
  };
  ASSERT_EQ(interface["members"].size(), std::size(kMembers));
  for (std::size_t place = 0; place < std::size(kMembers); ++place) {
    EXPECT_EQ(interface["members"][place].dump(), kMembers[place]);
  }
}

TEST(Describe, AnEnumerationTellsItsMembersInOrder) {
  EXPECT_EQ(Describe("enWeather", test::FurtherClasses()),
            R"j({"classes":[],"interfaces":[],"enumerations":[{"name":"enWeather","members":)j"
            R"j([{"name":"eWE_Fine","value":1},{"name":"eWE_Foul","value":-2}]}]})j");
}

TEST(Describe, NoNameIsEverything) {
  const Json json = Json::parse(Describe(""));
  ASSERT_EQ(json["classes"].size(), PublishedClasses().size());
  EXPECT_EQ(json["classes"].front()["name"], "clsRectangle");
  EXPECT_EQ(json["classes"].back()["name"], "ImageLibrary");
  EXPECT_EQ(json["interfaces"].front()["name"], "_clsRectangle");
  EXPECT_EQ(json["enumerations"].front()["name"], "enVarType");
}

TEST(Describe, FurtherClassesStandBehindThePublishedOnes) {
  EXPECT_EQ(Described("")["classes"].back()["name"], "Station");
  EXPECT_EQ(Described("")["interfaces"].back()["name"], "_Station");
  EXPECT_EQ(Described("")["enumerations"].back()["name"], "enWeather");
}

TEST(Describe, AnUnknownNameIsToldWithTheNearest) {
  EXPECT_RAISES(5, "there is no class, interface or enumeration \"clsLin\"; nearest is \"clsLine\"",
                Describe("clsLin"));
}

}  // namespace
}  // namespace quenzel7::server
