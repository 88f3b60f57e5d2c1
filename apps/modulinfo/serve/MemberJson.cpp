#include "serve/MemberJson.h"

#include <array>

namespace tessara {

namespace {

/// In the order of MemberKind.
constexpr std::array kindNames{"property", "method", "callback"};

const char* accessName(const Member& member) {
  if (member.set == nullptr) return "get";
  return member.get == nullptr ? "set" : "get/set";
}

OrderedJson argumentsJson(const Member& member) {
  OrderedJson list = OrderedJson::array();
  for (const Argument& argument : member.arguments) {
    list.push_back({{"name", argument.name},
                    {"type", typeName(argument.type)},
                    {"byReference", argument.byReference}});
  }
  return list;
}

OrderedJson typesJson(const Member& member) {
  switch (member.kind) {
    case MemberKind::Property:
      return {{"value", typeName(member.type)}};
    case MemberKind::Method:
      return {{"result", typeName(member.type)}, {"arguments", argumentsJson(member)}};
    case MemberKind::Callback:
      return {{"arguments", argumentsJson(member)}};
  }
  return nullptr;
}

}  // namespace

OrderedJson memberJson(const Member& member) {
  OrderedJson json{{"name", member.name},
                   {"kind", kindNames.at(static_cast<std::size_t>(member.kind))}};
  if (member.kind == MemberKind::Property) json["access"] = accessName(member);
  json["types"] = typesJson(member);
  return json;
}

}  // namespace tessara
