#include "serve/MemberRequests.h"

#include <string>
#include <vector>

#include "control/MemberTable.h"
#include "serve/MemberJson.h"
#include "serve/VariantJson.h"

namespace tessara {

namespace {

const Member& memberOf(const JsonReader& params, MemberKind kind, const char* kindName) {
  const std::string name = params["name"].text();
  const Member* member = findMember(name, kind);
  if (member == nullptr) {
    throw wrongParameters("there is no " + std::string(kindName) + " " + inQuotes(name));
  }
  return *member;
}

const Member& propertyOf(const JsonReader& params) {
  return memberOf(params, MemberKind::Property, "property");
}

std::vector<Variant> argumentsOf(const Member& member, const JsonReader& params) {
  const auto list = params.find("args");
  const auto given = list ? list->elements() : std::vector<JsonReader>();
  if (given.size() != member.arguments.size()) {
    throw wrongParameters(std::string(member.name) + " takes " +
                          std::to_string(member.arguments.size()) + " arguments, not " +
                          std::to_string(given.size()));
  }
  std::vector<Variant> values;
  for (std::size_t index = 0; index < given.size(); ++index) {
    values.push_back(toVariant(given[index].named(std::string(member.arguments[index].name))));
  }
  return values;
}

}  // namespace

JsonText getMember(Bridge& bridge, const JsonReader& params) {
  const Member& member = propertyOf(params);
  if (member.get == nullptr) throw wrongParameters(std::string(member.name) + " cannot be read");
  return toJson(member.get(bridge.control));
}

JsonText setMember(Bridge& bridge, const JsonReader& params) {
  const Member& member = propertyOf(params);
  if (member.set == nullptr) throw wrongParameters(std::string(member.name) + " cannot be written");
  member.set(bridge.control, toVariant(params["value"].named(std::string(member.name))));
  return nullptr;
}

JsonText callMember(Bridge& bridge, const JsonReader& params) {
  const Member& member = memberOf(params, MemberKind::Method, "method of the control");
  return toJson(member.call(bridge.control, argumentsOf(member, params)));
}

JsonText members(Bridge& /*bridge*/, const JsonReader& /*params*/) {
  std::vector<JsonText> list;
  for (const Member& member : memberTable()) list.push_back(memberJson(member));
  return JsonText::list(list);
}

}  // namespace tessara
