#include "serve/BridgeMethods.h"

#include <algorithm>
#include <array>
#include <limits>

#include "serve/MemberRequests.h"
#include "serve/WidgetRequests.h"

namespace tessara {

namespace {

JsonText show(Bridge& bridge, const JsonReader& /*params*/) {
  bridge.control.UserControl_Show();
  return nullptr;
}

JsonText wait(Bridge& bridge, const JsonReader& params) {
  const auto ms = params["ms"].signedNumber(0, std::numeric_limits<std::int32_t>::max());
  bridge.loop.runFor(std::chrono::milliseconds(ms));
  return nullptr;
}

JsonText quit(Bridge& bridge, const JsonReader& /*params*/) {
  bridge.quit();
  return nullptr;
}

using Names = std::string_view;

constexpr std::array ofMember{Names("name")};
constexpr std::array ofSet{Names("name"), Names("value")};
constexpr std::array ofCall{Names("name"), Names("args")};
constexpr std::array ofWidget{Names("widget")};
constexpr std::array ofSelect{Names("widget"), Names("index"), Names("text")};
constexpr std::array ofType{Names("widget"), Names("text")};
constexpr std::array ofTick{Names("timer")};
constexpr std::array ofWait{Names("ms")};

constexpr std::array<BridgeMethod, 13> methods{{
    {"get", ofMember, getMember},
    {"set", ofSet, setMember},
    {"call", ofCall, callMember},
    {"show", {}, show},
    {"press", ofWidget, pressWidget},
    {"select", ofSelect, selectInWidget},
    {"type", ofType, typeIntoWidget},
    {"widget", ofWidget, widgetState},
    {"widgets", {}, widgetStates},
    {"tick", ofTick, tickTimer},
    {"wait", ofWait, wait},
    {"members", {}, members},
    {"quit", {}, quit},
}};

const BridgeMethod& methodOf(const RpcRequest& request) {
  const auto* method = std::find_if(methods.begin(), methods.end(), [&](const BridgeMethod& row) {
    return row.name == request.method;
  });
  if (method == methods.end()) {
    throw RpcError(RpcCode::UnknownMethod, "there is no method " + inQuotes(request.method));
  }
  return *method;
}

/// Fails unless they are an object with no other names than these, or an empty list, which stands
/// for none.
void checkNames(const JsonReader& params, std::span<const std::string_view> names) {
  const bool isEmptyList = params.isList() && params.elements().empty();
  if (!isEmptyList) params.allowOnly(names);
}

}  // namespace

std::span<const BridgeMethod> bridgeMethods() {
  return methods;
}

JsonText carryOut(Bridge& bridge, const RpcRequest& request) {
  try {
    const BridgeMethod& method = methodOf(request);
    checkNames(request.params, method.parameters);
    return method.run(bridge, request.params);
  } catch (const RpcError&) {
    throw;
  } catch (const JsonError& error) {
    throw wrongParameters(error.what());
  } catch (const RunTimeError& error) {
    throw RpcError(error);
  } catch (const std::exception& error) {
    throw RpcError(RpcCode::Internal, error.what());
  }
}

}  // namespace tessara
