#include "serve/MemberRequests.h"

#include <string>
#include <vector>

#include "control/MemberTable.h"
#include "serve/MemberJson.h"
#include "serve/VariantJson.h"

namespace tessara {

namespace {

const Member& memberOf(const Parameters& parameters, MemberKind kind, const char* kindName) {
  const std::string name = parameters.text("name");
  const Member* member = findMember(name, kind);
  if (member == nullptr) {
    throw wrongParameters("there is no " + std::string(kindName) + " " + inQuotes(name));
  }
  return *member;
}

const Member& propertyOf(const Parameters& parameters) {
  return memberOf(parameters, MemberKind::Property, "property");
}

std::vector<Variant> argumentsOf(const Member& member, const Parameters& parameters) {
  const auto given = parameters.list("args");
  if (given.size() != member.arguments.size()) {
    throw wrongParameters(std::string(member.name) + " takes " +
                          std::to_string(member.arguments.size()) + " arguments, not " +
                          std::to_string(given.size()));
  }
  std::vector<Variant> values;
  for (std::size_t index = 0; index < given.size(); ++index) {
    values.push_back(toVariant(given[index], member.arguments[index].name));
  }
  return values;
}

}  // namespace

OrderedJson getMember(Bridge& bridge, const Parameters& parameters) {
  const Member& member = propertyOf(parameters);
  if (member.get == nullptr) throw wrongParameters(std::string(member.name) + " cannot be read");
  return toJson(member.get(bridge.control));
}

OrderedJson setMember(Bridge& bridge, const Parameters& parameters) {
  const Member& member = propertyOf(parameters);
  if (member.set == nullptr) throw wrongParameters(std::string(member.name) + " cannot be written");
  member.set(bridge.control, toVariant(parameters.value("value"), member.name));
  return nullptr;
}

OrderedJson callMember(Bridge& bridge, const Parameters& parameters) {
  const Member& member = memberOf(parameters, MemberKind::Method, "method of the control");
  return toJson(member.call(bridge.control, argumentsOf(member, parameters)));
}

OrderedJson tellMembers(Bridge& /*bridge*/, const Parameters& /*parameters*/) {
  OrderedJson list = OrderedJson::array();
  for (const Member& member : memberTable()) list.push_back(memberJson(member));
  return list;
}

}  // namespace tessara
