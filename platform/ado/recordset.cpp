#include "platform/ado/recordset.h"

#include <utility>

#include "platform/ado/connection.h"
#include "platform/automation/member.h"

namespace quenzel7::automation {

template <>
struct EnumInfoOf<ado::CursorType> {
  static constexpr EnumMember kMembers[] = {{"adOpenForwardOnly", ado::adOpenForwardOnly},
                                            {"adOpenKeyset", ado::adOpenKeyset},
                                            {"adOpenDynamic", ado::adOpenDynamic},
                                            {"adOpenStatic", ado::adOpenStatic}};
  static constexpr EnumInfo value{"CursorType", kMembers};
};

template <>
struct EnumInfoOf<ado::LockType> {
  static constexpr EnumMember kMembers[] = {{"adLockReadOnly", ado::adLockReadOnly},
                                            {"adLockPessimistic", ado::adLockPessimistic},
                                            {"adLockOptimistic", ado::adLockOptimistic}};
  static constexpr EnumInfo value{"LockType", kMembers};
};

template <>
struct EnumInfoOf<ado::CommandOption> {
  static constexpr EnumMember kMembers[] = {{"adCmdText", ado::adCmdText}};
  static constexpr EnumInfo value{"CommandOption", kMembers};
};

}  // namespace quenzel7::automation

namespace quenzel7::ado {
namespace {

using automation::ClassInfo;
using automation::Interface;
using automation::LastOptional;
using automation::Member;
using automation::Method;
using automation::Object;
using automation::ObjectRef;
using automation::Property;
using automation::Variant;

/// A column of a recordset's current row, for late-bound hosts.
class FieldObject final : public Object {
 public:
  static constexpr std::string_view kClassName = "Field";

  FieldObject(RecordsetRef recordset, std::string name)
      : recordset_(std::move(recordset)), name_(std::move(name)) {}

  const ClassInfo& Class() const override { return Field::ClassOf(); }

  const std::string& Name() const { return name_; }
  Variant Value() const { return recordset_->Get(name_); }
  void Value(const Variant& value) { recordset_->Put(name_, value); }

 private:
  RecordsetRef recordset_;
  std::string name_;
};

constexpr Member kFieldMembers[] = {
    Property<std::string>("Name", "The name under which the column was asked for.",
                          AUTOMATION_GETTER(FieldObject, Name), nullptr),
    AsValue(Property<Variant>("Value", "The value in the current row.", AUTOMATION_GETTER(FieldObject, Value),
                              AUTOMATION_SETTER(FieldObject, Variant, Value))),
};

Variant Fields(Object& object, automation::Arguments arguments) {
  auto recordset = std::static_pointer_cast<Recordset>(object.shared_from_this());
  return std::make_shared<FieldObject>(std::move(recordset), automation::To<std::string>(arguments[0]));
}

/// No C++ method stands for it: the Field that C++ callers get has no life of its own.
constexpr Member FieldsMember() {
  Member member;
  member.name = "Fields";
  member.type = automation::TypeOf<FieldObject>();
  member.parameters = automation::detail::kParametersOf<const std::string&>;
  member.parameterNames = "name";
  member.method = &Fields;
  member.documentation = "A column of the current row, by name.";
  return member;
}

constexpr Member kMembers[] = {
    LastOptional(Method<Recordset, &Recordset::Open>("Open", "Runs a query and stands on its first row.",
                                                     "source, connection, cursor, lock, options"),
                 adCmdText),
    Method<Recordset, &Recordset::Close>("Close", "Forgets the rows and what was not yet written."),
    Method<Recordset, &Recordset::AddNew>("AddNew", "Begins a new row."),
    Method<Recordset, &Recordset::Update>("Update", "Writes the current row."),
    Method<Recordset, &Recordset::Delete>("Delete", "Deletes the current row."),
    Property<bool>("EOF", "Whether there is no row, or the last was passed.",
                   AUTOMATION_GETTER(Recordset, Eof), nullptr),
    Property<bool>("BOF", "Whether there is no row, or the first was passed.",
                   AUTOMATION_GETTER(Recordset, Bof), nullptr),
    Method<Recordset, &Recordset::MoveFirst>("MoveFirst", "Goes to the first row."),
    Method<Recordset, &Recordset::MoveNext>("MoveNext", "Goes to the next row."),
    Method<Recordset, &Recordset::Move>("Move", "Goes on by a number of rows, backward when negative.",
                                        "rows"),
    Property<Long>("RecordCount", "Number of rows; -1 when it is not known.",
                   AUTOMATION_GETTER(Recordset, RecordCount), nullptr),
    Property<Long>("FieldCount", "Number of columns.", AUTOMATION_GETTER(Recordset, FieldCount), nullptr),
    AsValue(FieldsMember()),
};

}  // namespace

const ClassInfo& Field::ClassOf() {
  static const Interface interface("Field", kFieldMembers);
  static const Interface* const interfaces[] = {&interface};
  static const ClassInfo info{FieldObject::kClassName, interfaces, nullptr};
  return info;
}

const ClassInfo& Recordset::ClassOf() {
  static const Interface interface("Recordset", kMembers);
  static const Interface* const interfaces[] = {&interface};
  static const ClassInfo info{kClassName, interfaces, nullptr};
  return info;
}

}  // namespace quenzel7::ado
