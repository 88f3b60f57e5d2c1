#pragma once

#include <string>

namespace tessara {

/// The revision of the USB reader's processor from its reply: the three bytes after result code and
/// length, in decimal, joined by points. Two characters that are not a hexadecimal number count as
/// 0.
std::u16string McuRevisionText(const std::u16string& reply);

}  // namespace tessara
