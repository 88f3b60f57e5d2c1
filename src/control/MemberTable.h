#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/Variant.h"

namespace tessara {

class ModulInfoFLII;

enum class MemberKind { Property, Method, Callback };

/// Types of the host interface: 32-bit, 16-bit, unsigned 8-bit and floating-point numbers, a 16-bit
/// truth value, a string, a variant and an object reference.
enum class ValueType { None, Long, Integer, Byte, Double, Boolean, String, AnyValue, Object };

struct Argument {
  std::string_view name;
  ValueType type = ValueType::None;
  bool byReference = false;
};

/// One member of the control as a host sees it. A member that is not in the table does not exist.
struct Member {
  std::string_view name;
  MemberKind kind = MemberKind::Property;
  std::int32_t dispatch = 0;
  /// The type of a property, the result type of a method.
  ValueType type = ValueType::None;
  std::span<const Argument> arguments;

  /// Null if the member cannot be read, written or called. Values are converted to the member's
  /// types; one that cannot be converted is a type mismatch (13) or an overflow (6). An object
  /// reads as its name, or as nothing.
  Variant (*get)(ModulInfoFLII& control) = nullptr;
  void (*set)(ModulInfoFLII& control, const Variant& value) = nullptr;
  /// Takes exactly as many values as the member has arguments; any other number is an invalid call
  /// (5).
  Variant (*call)(ModulInfoFLII& control, std::span<const Variant> values) = nullptr;
};

/// Every property and method in the order of the interface, then the callbacks in theirs.
std::span<const Member> memberTable();

/// The member of that name and kind; null if there is none. NFCReader is both a property and a
/// callback.
const Member* findMember(std::string_view name, MemberKind kind);

/// The name of a type on the interface: "Long", "variant" and so on.
std::string_view typeName(ValueType type);

}  // namespace tessara
