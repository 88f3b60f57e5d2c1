#include "serve/BridgeMethods.h"

#include <algorithm>
#include <array>

#include "serve/MemberRequests.h"
#include "serve/WidgetRequests.h"

namespace tessara {

namespace {

OrderedJson show(Bridge& bridge, const Parameters& /*parameters*/) {
  bridge.control.UserControl_Show();
  return nullptr;
}

OrderedJson wait(Bridge& bridge, const Parameters& parameters) {
  const std::int32_t ms = parameters.number("ms");
  if (ms < 0) throw wrongParameters("the parameter \"ms\" is negative");
  bridge.loop.runFor(std::chrono::milliseconds(ms));
  return nullptr;
}

OrderedJson quit(Bridge& bridge, const Parameters& /*parameters*/) {
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
    {"widget", ofWidget, tellWidget},
    {"widgets", {}, tellWidgets},
    {"tick", ofTick, tickTimer},
    {"wait", ofWait, wait},
    {"members", {}, tellMembers},
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

}  // namespace

std::span<const BridgeMethod> bridgeMethods() {
  return methods;
}

OrderedJson carryOut(Bridge& bridge, const RpcRequest& request) {
  try {
    const BridgeMethod& method = methodOf(request);
    return method.run(bridge, Parameters(request.params, method.parameters));
  } catch (const RpcError&) {
    throw;
  } catch (const RunTimeError& error) {
    throw RpcError(error);
  } catch (const std::exception& error) {
    throw RpcError(RpcCode::Internal, error.what());
  }
}

}  // namespace tessara
