#pragma once

#include <span>
#include <string>

#include "control/MemberTable.h"
#include "tools/reference/Descriptions.h"

namespace tessara {

/// The reference page in Markdown: each member with its number, type, way of access and
/// description, then the values and errors.
///
/// A member without a description, or a description without a member, is a std::invalid_argument
/// that names it.
std::string reference(std::span<const Member> members, std::span<const Description> texts);

}  // namespace tessara
