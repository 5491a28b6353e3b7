#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/automation/property_bag.h"
#include "tests/support/empty_connection.h"
#include "tests/support/text_fixture.h"
#include "variables/text/text_list.h"

namespace quenzel7::test {

/// Lists of texts with the counting services, without a project.
template <class Handler>
class TextLists : public ShapeTest<Handler> {
 protected:
  void SetUp() override {
    ShapeTest<Handler>::SetUp();
    services_.Install();
  }

  /// A list of those texts alone.
  static std::shared_ptr<Handler> Of(const CallLog& texts) {
    auto handler = std::make_shared<Handler>();
    handler->Clear();
    for (const std::string& text : texts) {
      handler->AppendText();
      handler->ListTexts(handler->ListCount())->Txt(text);
    }
    return handler;
  }
  static CallLog TextsOf(const TextListHandler& handler) {
    CallLog texts;
    for (Long text = 1; text <= handler.ListCount(); ++text) texts.push_back(handler.ListTexts(text)->Txt());
    return texts;
  }

  /// Opens a project without anything in it, which is all that the string library asks for.
  static void OpenEmptyProject() {
    const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
    database->Hold(std::make_shared<EmptyConnection>());
    Platform::Current().projectDatabase = database;
  }
  /// What the counting services are asked meanwhile.
  template <class Action>
  CallLog AskedBy(Action action) {
    return services_.AskedBy(action);
  }

  /// The settings of a handler by their names, as they stand in its data.
  static automation::PropertyBagRef BagOf(const BinaryHandler& handler) {
    auto bag = std::make_shared<automation::PropertyBag>();
    bag->Contents(handler.GetBinaryData());
    return bag;
  }
  /// The data of a handler, one setting being replaced or, without a value, left out.
  static std::vector<Byte> DataWith(const BinaryHandler& handler, std::string_view name,
                                    const automation::Variant* value) {
    const automation::PropertyBagRef bag = BagOf(handler);
    automation::PropertyBag changed;
    for (const std::string& kept : bag->Names()) {
      if (kept != name) {
        changed.WriteProperty(kept, bag->ReadProperty(kept));
      } else if (value) {
        changed.WriteProperty(kept, *value);
      }
    }
    return changed.Contents();
  }

  CountingServices services_;
};

}  // namespace quenzel7::test
