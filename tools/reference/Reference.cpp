#include "tools/reference/Reference.h"

#include <algorithm>
#include <stdexcept>

#include "tools/reference/Values.h"

namespace tessara {
namespace {

constexpr std::string_view opening =
    "# Reference\n\nEvery property, method and callback of `ModulInfoFLII`, in the order of its "
    "interface, with its dispatch number.\nThe build writes this page from the member table; the "
    "descriptions are in `tools/reference`.\n\nIn C++ a property `Baudrate` is `get_Baudrate()` "
    "and `put_Baudrate()`, and callbacks are those of `HostEvents`.\nThe bridge uses the names "
    "given here.\n\n| Type | Meaning |\n|---|---|\n| Long | 32-bit signed whole number |\n| "
    "Integer | 16-bit signed whole number |\n| Byte | 8-bit unsigned whole number |\n| Double | "
    "64-bit floating-point number |\n| Boolean | truth value |\n| string | text |\n| variant | "
    "text, number or nothing; where text is kept, numbers become text |\n| object | a "
    "communication object |\n";

const Description& descriptionOf(const Member& member, std::span<const Description> texts) {
  const auto found = std::find_if(texts.begin(), texts.end(), [&](const Description& text) {
    return text.name == member.name && text.kind == member.kind;
  });
  if (found == texts.end() || found->text.empty()) {
    throw std::invalid_argument(std::string(member.name) + " has no description");
  }
  return *found;
}

void checkThatAllAreMembers(std::span<const Member> members, std::span<const Description> texts) {
  for (const Description& text : texts) {
    const bool isMember = std::any_of(members.begin(), members.end(), [&](const Member& member) {
      return text.name == member.name && text.kind == member.kind;
    });
    if (!isMember) {
      throw std::invalid_argument(std::string(text.name) + " is described but is not a member");
    }
  }
}

std::string accessOf(const Member& member) {
  if (member.get != nullptr && member.set != nullptr) {
    return "read, write";
  }
  return member.get != nullptr ? "read" : "write";
}

/// "lInStatus: Long by reference, ..."
std::string argumentsOf(const Member& member) {
  std::string text;
  for (const Argument& argument : member.arguments) {
    text += text.empty() ? "" : ", ";
    text += "`" + std::string(argument.name) + "`: " + std::string(typeName(argument.type)) +
            (argument.byReference ? " by reference" : "");
  }
  return text.empty() ? "none" : text;
}

/// The cells of a member between its name and its description.
std::string middleCells(const Member& member) {
  switch (member.kind) {
    case MemberKind::Property:
      return std::string(typeName(member.type)) + " | " + accessOf(member);
    case MemberKind::Method:
      return argumentsOf(member) + " | " + std::string(typeName(member.type));
    case MemberKind::Callback:
      return argumentsOf(member);
  }
  return {};
}

struct Section {
  MemberKind kind;
  std::string_view title;
  std::string_view headings;
};

constexpr Section sections[] = {
    {MemberKind::Property, "Properties", "| # | Name | Type | Access | |\n|---|---|---|---|---|\n"},
    {MemberKind::Method, "Methods", "| # | Name | Arguments | Result | |\n|---|---|---|---|---|\n"},
    {MemberKind::Callback, "Callbacks",
     "Callbacks run on the control's thread, inside the operation that raises them.\n\n| # | Name "
     "| Arguments | |\n|---|---|---|---|\n"},
};

std::string sectionText(const Section& section, std::span<const Member> members,
                        std::span<const Description> texts) {
  std::string text = "\n## " + std::string(section.title) + "\n\n" + std::string(section.headings);
  for (const Member& member : members) {
    if (member.kind == section.kind) {
      text += "| " + std::to_string(member.dispatch) + " | `" + std::string(member.name) + "` | " +
              middleCells(member) + " | " + std::string(descriptionOf(member, texts).text) + " |\n";
    }
  }
  return text;
}

std::string valuesText(const ValueTable& table) {
  std::string text = "\n### " + std::string(table.name) + "\n\n";
  if (!table.introduction.empty()) {
    text += std::string(table.introduction) + "\n\n";
  }
  text += "| Value | Meaning |\n|---|---|\n";
  for (const ValueMeaning& row : table.rows) {
    text += "| " + std::to_string(row.value) + " | " + std::string(row.meaning) + " |\n";
  }
  return text;
}

}  // namespace

std::string reference(std::span<const Member> members, std::span<const Description> texts) {
  checkThatAllAreMembers(members, texts);
  std::string page(opening);
  for (const Section& section : sections) {
    page += sectionText(section, members, texts);
  }
  page += "\n## Values\n";
  for (const ValueTable& table : valueTables()) {
    page += valuesText(table);
  }
  return page;
}

}  // namespace tessara
