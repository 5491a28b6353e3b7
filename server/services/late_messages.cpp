#include "server/services/late_messages.h"

#include <utility>

namespace quenzel7::server {

Long LateMessages::ShowMessage(Long number, automation::Variant& argument) {
  automation::Variant arguments[] = {number, argument};
  const Long answer = host_.Call<Long>("ShowMessage", automation::Arguments(arguments));
  argument = std::move(arguments[1]);
  return answer;
}

}  // namespace quenzel7::server
