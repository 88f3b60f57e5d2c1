#include "control/MemberTable.h"

#include <algorithm>
#include <array>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "control/ModulInfoFLII.h"

namespace tessara {
namespace {

/// How a C++ type crosses the interface: its host type and the conversions in both directions.
template <typename Type>
struct Crossing;

template <>
struct Crossing<std::int32_t> {
  static constexpr ValueType type = ValueType::Long;
  static Variant out(std::int32_t value) { return std::int64_t{value}; }
  static std::int32_t in(const Variant& value, std::u16string_view sep) {
    return toInt32(value, sep);
  }
};

template <>
struct Crossing<std::int16_t> {
  static constexpr ValueType type = ValueType::Integer;
  static Variant out(std::int16_t value) { return std::int64_t{value}; }
  static std::int16_t in(const Variant& value, std::u16string_view sep) {
    return toInt16(value, sep);
  }
};

template <>
struct Crossing<std::uint8_t> {
  static constexpr ValueType type = ValueType::Byte;
  static Variant out(std::uint8_t value) { return std::int64_t{value}; }
};

template <>
struct Crossing<double> {
  static constexpr ValueType type = ValueType::Double;
  static Variant out(double value) { return value; }
  static double in(const Variant& value, std::u16string_view sep) { return toDouble(value, sep); }
};

template <>
struct Crossing<bool> {
  static constexpr ValueType type = ValueType::Boolean;
  static Variant out(bool value) { return value; }
};

template <>
struct Crossing<std::u16string> {
  static constexpr ValueType type = ValueType::String;
  static Variant out(std::u16string value) { return value; }
};

template <>
struct Crossing<Variant> {
  static constexpr ValueType type = ValueType::AnyValue;
  static Variant out(Variant value) { return value; }
  static Variant in(const Variant& value, std::u16string_view /*sep*/) { return value; }
};

template <>
struct Crossing<CommunicationObject*> {
  static constexpr ValueType type = ValueType::Object;
  static Variant out(CommunicationObject* value) {
    return value == nullptr ? Variant{} : Variant{std::u16string(value->name())};
  }
};

template <typename>
struct Signature;

template <typename Result, typename... Arguments>
struct Signature<Result (ModulInfoFLII::*)(Arguments...)> {
  using Returned = Result;
  using Taken = std::tuple<std::decay_t<Arguments>...>;
};

template <typename Result, typename... Arguments>
struct Signature<Result (ModulInfoFLII::*)(Arguments...) const>
    : Signature<Result (ModulInfoFLII::*)(Arguments...)> {};

template <auto get>
Variant callGetter(ModulInfoFLII& control) {
  using Returned = typename Signature<decltype(get)>::Returned;
  return Crossing<Returned>::out((control.*get)());
}

template <auto set>
void callSetter(ModulInfoFLII& control, const Variant& value) {
  using Taken = std::tuple_element_t<0, typename Signature<decltype(set)>::Taken>;
  (control.*set)(Crossing<Taken>::in(value, control.decimalSeparator()));
}

template <auto method, std::size_t... Index>
Variant callWith(ModulInfoFLII& control, [[maybe_unused]] std::span<const Variant> values,
                 std::index_sequence<Index...> /*places*/) {
  using Of = Signature<decltype(method)>;
  [[maybe_unused]] const std::u16string sep = control.decimalSeparator();
  [[maybe_unused]] typename Of::Taken taken{
      Crossing<std::tuple_element_t<Index, typename Of::Taken>>::in(values[Index], sep)...};
  if constexpr (std::is_void_v<typename Of::Returned>) {
    (control.*method)(std::get<Index>(taken)...);
    return {};
  } else {
    return Crossing<typename Of::Returned>::out((control.*method)(std::get<Index>(taken)...));
  }
}

template <auto method>
Variant callMethod(ModulInfoFLII& control, std::span<const Variant> values) {
  constexpr auto count = std::tuple_size_v<typename Signature<decltype(method)>::Taken>;
  if (values.size() != count) {
    throw RunTimeError(ErrorNumber::InvalidCall, "the method takes " + std::to_string(count) +
                                                     " arguments, not " +
                                                     std::to_string(values.size()));
  }
  return callWith<method>(control, values, std::make_index_sequence<count>());
}

template <typename Result>
constexpr ValueType resultType() {
  if constexpr (std::is_void_v<Result>) {
    return ValueType::None;
  } else {
    return Crossing<Result>::type;
  }
}

template <auto get>
constexpr Member readOnly(std::string_view name, std::int32_t dispatch) {
  using Returned = typename Signature<decltype(get)>::Returned;
  return {name, MemberKind::Property, dispatch, Crossing<Returned>::type, {}, callGetter<get>};
}

template <auto set>
constexpr Member writeOnly(std::string_view name, std::int32_t dispatch) {
  using Taken = std::tuple_element_t<0, typename Signature<decltype(set)>::Taken>;
  return {name,    MemberKind::Property, dispatch, Crossing<Taken>::type, {},
          nullptr, callSetter<set>};
}

template <auto get, auto set>
constexpr Member readWrite(std::string_view name, std::int32_t dispatch) {
  Member member = readOnly<get>(name, dispatch);
  member.set = callSetter<set>;
  return member;
}

template <auto call>
constexpr Member method(std::string_view name, std::int32_t dispatch,
                        std::span<const Argument> arguments = {}) {
  using Returned = typename Signature<decltype(call)>::Returned;
  return {name,    MemberKind::Method, dispatch, resultType<Returned>(), arguments, nullptr,
          nullptr, callMethod<call>};
}

constexpr Member callback(std::string_view name, std::int32_t dispatch,
                          std::span<const Argument> arguments = {}) {
  return {name, MemberKind::Callback, dispatch, ValueType::None, arguments};
}

constexpr std::array channelWords{Argument{"lInStatus", ValueType::Long, true},
                                  Argument{"lOutStatus", ValueType::Long, true}};
constexpr std::array moduleWords{Argument{"lDevStatus", ValueType::Long, true},
                                 Argument{"lLedStatus", ValueType::Long, true}};
constexpr std::array activity{Argument{"lStatus", ValueType::Long, true}};
constexpr std::array reader{Argument{"bNFCReader", ValueType::Boolean, true}};

constexpr std::array table{
    readWrite<&ModulInfoFLII::get_DeviceID, &ModulInfoFLII::put_DeviceID>("DeviceID", 1),
    readWrite<&ModulInfoFLII::get_FamilyID, &ModulInfoFLII::put_FamilyID>("FamilyID", 2),
    readWrite<&ModulInfoFLII::get_FirmwareVers, &ModulInfoFLII::put_FirmwareVers>("FirmwareVers",
                                                                                  3),
    readWrite<&ModulInfoFLII::get_DeviceName, &ModulInfoFLII::put_DeviceName>("DeviceName", 4),
    readWrite<&ModulInfoFLII::get_CmdLineString, &ModulInfoFLII::put_CmdLineString>("CmdLineString",
                                                                                    5),
    readWrite<&ModulInfoFLII::get_FwVersion, &ModulInfoFLII::put_FwVersion>("FwVersion", 6),
    readOnly<&ModulInfoFLII::get_SerialNumber>("SerialNumber", 7),
    readWrite<&ModulInfoFLII::get_PackbLink, &ModulInfoFLII::put_PackbLink>("PackbLink", 8),
    readWrite<&ModulInfoFLII::get_ProductLink, &ModulInfoFLII::put_ProductLink>("ProductLink", 9),
    readWrite<&ModulInfoFLII::get_DatasheetLink, &ModulInfoFLII::put_DatasheetLink>("DatasheetLink",
                                                                                    10),
    readWrite<&ModulInfoFLII::get_VersionString, &ModulInfoFLII::put_VersionString>("VersionString",
                                                                                    11),
    readOnly<&ModulInfoFLII::get_DevAddr>("DevAddr", 12),
    readOnly<&ModulInfoFLII::get_CommunicationObject>("CommunicationObject", 13),
    readWrite<&ModulInfoFLII::get_DataValid, &ModulInfoFLII::put_DataValid>("DataValid", 14),
    readWrite<&ModulInfoFLII::get_DeviceConnected, &ModulInfoFLII::put_DeviceConnected>(
        "DeviceConnected", 15),
    readWrite<&ModulInfoFLII::get_ComPort, &ModulInfoFLII::put_ComPort>("ComPort", 16),
    readOnly<&ModulInfoFLII::get_DataBits>("DataBits", 17),
    readOnly<&ModulInfoFLII::get_StopBits>("StopBits", 18),
    readOnly<&ModulInfoFLII::get_Parity>("Parity", 19),
    readWrite<&ModulInfoFLII::get_Baudrate, &ModulInfoFLII::put_Baudrate>("Baudrate", 20),
    readOnly<&ModulInfoFLII::get_MaxBaudrate>("MaxBaudrate", 21),
    readWrite<&ModulInfoFLII::get_AppPathString, &ModulInfoFLII::put_AppPathString>("AppPathString",
                                                                                    22),
    readWrite<&ModulInfoFLII::get_Language, &ModulInfoFLII::put_Language>("Language", 23),
    readWrite<&ModulInfoFLII::get_StatusString, &ModulInfoFLII::put_StatusString>("StatusString",
                                                                                  24),
    method<&ModulInfoFLII::SetChnStatus>("SetChnStatus", 25, channelWords),
    readOnly<&ModulInfoFLII::get_ChnStatusString>("ChnStatusString", 26),
    method<&ModulInfoFLII::SetModuleStatus>("SetModuleStatus", 27, moduleWords),
    readOnly<&ModulInfoFLII::get_ModulStatusString>("ModulStatusString", 28),
    writeOnly<&ModulInfoFLII::put_DescriptionString>("DescriptionString", 29),
    readWrite<&ModulInfoFLII::get_ManufactureLogoString, &ModulInfoFLII::put_ManufactureLogoString>(
        "ManufactureLogoString", 30),
    writeOnly<&ModulInfoFLII::put_DeviceLogoString>("DeviceLogoString", 31),
    readWrite<&ModulInfoFLII::get_DevicePictureString, &ModulInfoFLII::put_DevicePictureString>(
        "DevicePictureString", 32),
    readOnly<&ModulInfoFLII::get_StringsReverse>("StringsReverse", 33),
    readOnly<&ModulInfoFLII::get_NFCReader>("NFCReader", 34),
    readOnly<&ModulInfoFLII::get_GetNFCMCURevison>("GetNFCMCURevison", 35),
    readOnly<&ModulInfoFLII::get_QuickSetupMode>("QuickSetupMode", 36),
    readWrite<&ModulInfoFLII::get_QuickSetup, &ModulInfoFLII::put_QuickSetup>("QuickSetup", 37),
    method<&ModulInfoFLII::LockCmdStore>("LockCmdStore", 38),
    method<&ModulInfoFLII::UnLockCmdStore>("UnLockCmdStore", 39),
    method<&ModulInfoFLII::EnableCmdStore>("EnableCmdStore", 40),
    method<&ModulInfoFLII::DisableCmdStore>("DisableCmdStore", 41),
    writeOnly<&ModulInfoFLII::put_DeviceActive>("DeviceActive", 42),
    readOnly<&ModulInfoFLII::get_DataTrafic>("DataTrafic", 43),
    method<&ModulInfoFLII::AutomaticConnection>("AutomaticConnection", 44),
    readOnly<&ModulInfoFLII::get_CheckDeviceType>("CheckDeviceType", 45),
    method<&ModulInfoFLII::GetFWVersion>("GetFWVersion", 46),
    method<&ModulInfoFLII::GetDeviceInformation>("GetDeviceInformation", 47),
    method<&ModulInfoFLII::GetDeviceStatus>("GetDeviceStatus", 48),
    callback("ModulActive", 1, activity),
    callback("StatusChange", 2),
    callback("SetConfiguration", 3),
    callback("SaveConfiguration", 4),
    callback("LoadConfiguration", 5),
    callback("PrintConfiguration", 6),
    callback("DataTransfer", 7),
    callback("NFCReader", 8, reader),
};

constexpr std::array<std::pair<ValueType, std::string_view>, 9> typeNames{{
    {ValueType::None, "none"},
    {ValueType::Long, "Long"},
    {ValueType::Integer, "Integer"},
    {ValueType::Byte, "Byte"},
    {ValueType::Double, "Double"},
    {ValueType::Boolean, "Boolean"},
    {ValueType::String, "string"},
    {ValueType::AnyValue, "variant"},
    {ValueType::Object, "object"},
}};

}  // namespace

std::span<const Member> memberTable() {
  return table;
}

const Member* findMember(std::string_view name, MemberKind kind) {
  const auto* found = std::find_if(table.begin(), table.end(), [&](const Member& member) {
    return member.name == name && member.kind == kind;
  });
  return found == table.end() ? nullptr : found;
}

std::string_view typeName(ValueType type) {
  const auto* found = std::find_if(typeNames.begin(), typeNames.end(),
                                   [&](const auto& row) { return row.first == type; });
  return found->second;
}

}  // namespace tessara
