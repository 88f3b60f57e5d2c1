#include "DeviceCallJson.h"

namespace tessara {

namespace {

template <class Number>
JsonText listJson(const std::vector<Number>& numbers) {
  return JsonText::list({numbers.begin(), numbers.end()});
}

struct ResultJson {
  JsonText operator()(std::monostate /*nothing*/) const { return nullptr; }
  JsonText operator()(bool value) const { return value; }
  JsonText operator()(const DeviceWords& words) const { return listJson(words); }
};

}  // namespace

JsonText deviceCallJson(const DeviceCall& call) {
  return JsonText::object({{"object", call.object},
                           {"operation", call.operation},
                           {"args", listJson(call.arguments)},
                           call.error
                               ? JsonText::Member("error", *call.error)
                               : JsonText::Member("result", std::visit(ResultJson{}, call.result)),
                           {"ms", call.milliseconds}});
}

}  // namespace tessara
