#include "serve/MemberJson.h"

#include <array>
#include <vector>

namespace tessara {

namespace {

/// In the order of MemberKind.
constexpr std::array kindNames{"property", "method", "callback"};

const char* accessName(const Member& member) {
  if (member.set == nullptr) return "get";
  return member.get == nullptr ? "set" : "get/set";
}

JsonText argumentsJson(const Member& member) {
  std::vector<JsonText> list;
  for (const Argument& argument : member.arguments) {
    list.push_back(JsonText::object({{"name", argument.name},
                                     {"type", typeName(argument.type)},
                                     {"byReference", argument.byReference}}));
  }
  return JsonText::list(list);
}

JsonText typesJson(const Member& member) {
  switch (member.kind) {
    case MemberKind::Property:
      return JsonText::object({{"value", typeName(member.type)}});
    case MemberKind::Method:
      return JsonText::object(
          {{"result", typeName(member.type)}, {"arguments", argumentsJson(member)}});
    case MemberKind::Callback:
      return JsonText::object({{"arguments", argumentsJson(member)}});
  }
  return nullptr;
}

}  // namespace

JsonText memberJson(const Member& member) {
  std::vector<JsonText::Member> members{
      {"name", member.name}, {"kind", kindNames.at(static_cast<std::size_t>(member.kind))}};
  if (member.kind == MemberKind::Property) members.emplace_back("access", accessName(member));
  members.emplace_back("types", typesJson(member));
  return JsonText::object(members);
}

}  // namespace tessara
