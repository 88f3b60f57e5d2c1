#include "access/RegisterDecoding.h"

#include <limits>

#include "base/RunTimeError.h"
#include "base/Variant.h"
#include "knowledge/Conversions.h"
#include "knowledge/modByteConvert.h"

namespace tessara {

std::int32_t elementOf(const DeviceWords& words, std::size_t index) {
  if (index >= words.size()) {
    throw RunTimeError(ErrorNumber::Subscript,
                       "the module delivered " + std::to_string(words.size()) + " words, element " +
                           std::to_string(index) + " is missing");
  }
  return words[index];
}

std::int16_t wordOf(const DeviceWords& words, std::size_t index) {
  return narrowToInt16(elementOf(words, index), "a word of the module");
}

double DecodeVersionWord(std::int32_t element, const BitFieldHelper& bits) {
  const auto digit = [&](std::int32_t shift) {
    return static_cast<double>(bits.ShiftRight(element, shift) & 15);
  };
  return digit(12) + digit(8) * 0.1 + digit(4) * 0.01 + digit(0) * 0.001;
}

std::u16string VersionText(float firmwareVers, std::u16string_view separator) {
  const auto rounded = static_cast<float>(RoundToThreeDecimals(firmwareVers));
  return PadVersionText(CommaToPoint(numberText(rounded, separator)));
}

std::u16string PadVersionText(std::u16string text) {
  switch (text.size()) {
    case 1:
      return text + u".000";
    case 3:
      return text + u"00";
    case 4:
      return text + u"0";
    default:
      return text;
  }
}

std::uint64_t SerialNumberOf(const DeviceWords& words) {
  const auto number = Join32To64(WordsToUnsigned32(elementOf(words, 3), elementOf(words, 2)),
                                 WordsToUnsigned32(elementOf(words, 1), elementOf(words, 0)));
  if (number < 0 || number > std::numeric_limits<std::uint64_t>::max()) {
    throw RunTimeError(ErrorNumber::Overflow, "the serial number does not fit 64 bits");
  }
  return static_cast<std::uint64_t>(number);
}

std::u16string NameText(const DeviceWords& words) {
  std::u16string name;
  for (std::size_t i = 0; i < registers::deviceNameWords; ++i) {
    const std::int32_t element = elementOf(words, i);
    name += static_cast<char16_t>(HighByte(element));
    name += static_cast<char16_t>(LowByte(element));
  }
  return name;
}

std::u16string HartText(const DeviceWords& words) {
  constexpr std::size_t statusBytes = 2;
  std::u16string text;
  for (std::size_t i = statusBytes; i < words.size(); ++i) {
    if (words[i] < 0 || words[i] > std::numeric_limits<char16_t>::max()) {
      throw RunTimeError(ErrorNumber::InvalidCall, "a text of the module holds " +
                                                       std::to_string(words[i]) +
                                                       ", which is not a character code");
    }
    text += static_cast<char16_t>(words[i]);
  }
  return text;
}

}  // namespace tessara
