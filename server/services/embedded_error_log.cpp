#include "server/services/embedded_error_log.h"

#include "server/services/rows.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using View = EmbeddedErrorLog;

constexpr automation::Member kMembers[] = {
    automation::Method<View, &View::Report>("Report", "Takes down an error as the library does.",
                                            "source, number, description, module, text1, text2, value"),
    automation::Property<automation::Variant>("Reports",
                                              "The latest reports in order, each an array of source, number, "
                                              "description, module, text1, text2 and value.",
                                              AUTOMATION_GETTER(View, Reports), nullptr),
    ClearMember<View>(),
    PrintedMember<View>(),
};

}  // namespace

const automation::ClassInfo& EmbeddedErrorLog::ClassOf() { return ServiceClass<View>(kMembers); }

void EmbeddedErrorLog::Report(const std::string& source, Long number, const std::string& description,
                              const std::string& module, const std::string& text1, const std::string& text2,
                              Long value) {
  Service()->Report({source, number, description, module, text1, text2, value});
}

automation::Variant EmbeddedErrorLog::Reports() const {
  return Rows(Service()->Reports(), [](const corvane1::ErrorReport& report) {
    return Fields{report.source, report.number, report.description, report.module,
                  report.text1,  report.text2,  report.value};
  });
}

}  // namespace quenzel7::server
