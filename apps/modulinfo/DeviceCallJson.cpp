#include "DeviceCallJson.h"

namespace tessara {

namespace {

using Json = nlohmann::ordered_json;

struct ResultJson {
  Json operator()(std::monostate /*nothing*/) const { return nullptr; }
  Json operator()(bool value) const { return value; }
  Json operator()(const DeviceWords& words) const { return words; }
};

}  // namespace

Json deviceCallJson(const DeviceCall& call) {
  Json json{{"object", call.object}, {"operation", call.operation}, {"args", call.arguments}};
  if (call.error) {
    json["error"] = *call.error;
  } else {
    json["result"] = std::visit(ResultJson{}, call.result);
  }
  json["ms"] = call.milliseconds;
  return json;
}

}  // namespace tessara
