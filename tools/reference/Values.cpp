#include "tools/reference/Values.h"

#include <array>

#include "base/RunTimeError.h"
#include "control/HostEvents.h"

namespace tessara {
namespace {

constexpr std::int32_t valueOf(Activity activity) {
  return static_cast<std::int32_t>(activity);
}

constexpr std::int32_t valueOf(ErrorNumber number) {
  return static_cast<std::int32_t>(number);
}

constexpr auto activity = std::to_array<ValueMeaning>({
    {valueOf(Activity::AccessOver),
     "An access is over and the connection closed, or the host "
     "wrote 0 to `DeviceActive`."},
    {valueOf(Activity::Busy), "An access has begun, or the host wrote 1 to `DeviceActive`."},
    {valueOf(Activity::ConnectionFailed),
     "The module was not reached; there are no data. Or the "
     "host wrote 3 to `DeviceActive`."},
    {valueOf(Activity::Scanning),
     "A pass of the background scan has begun. One that ends well "
     "gives no further value; one that fails gives 0."},
    {valueOf(Activity::HostWorkEnded), "The host wrote 5 to `DeviceActive`."},
    {valueOf(Activity::NoInterface), "`AutomaticConnection` found neither a port nor a reader."},
    {valueOf(Activity::PassedOn7), "The host wrote 6 to `DeviceActive`."},
    {valueOf(Activity::PassedOn8), "The host wrote 7 to `DeviceActive`."},
});

constexpr auto dataValid = std::to_array<ValueMeaning>({
    {0, "No module was read, or reading failed."},
    {1, "The last read went through to its end."},
    {2, "The user works offline."},
});

constexpr auto deviceActive = std::to_array<ValueMeaning>({
    {0,
     "Work is over: Read, Open, Save and Print are enabled, Store and Offline are as they were "
     "when it began. The scan may run again."},
    {1, "Work begins: all six buttons are disabled, and the scan rests."},
    {3,
     "Work failed: Read, Offline, Open and Save are enabled, Print is disabled, Store is as it "
     "was when work began. The scan is ended until the next read."},
    {4, "Work without the buttons: the scan rests, nothing else changes."},
    {5, "Work is over without a module: as 3, with Print as it is."},
    {6, "Raises `ModulActive` with 7, and nothing else."},
    {7, "Raises `ModulActive` with 8, and nothing else."},
});

constexpr auto checkDeviceType = std::to_array<ValueMeaning>({
    {0, "Another family, device or firmware; or no connection."},
    {1, "Family, device and firmware are those that were read."},
    {3, "Reading broke off."},
});

constexpr auto language = std::to_array<ValueMeaning>({
    {0, "by the country of the system"},
    {1, "German"},
    {2, "English"},
    {3, "French"},
    {4, "Spanish"},
    {5, "Italian"},
    {6, "Portuguese"},
    {7, "Turkish"},
    {8, "Russian"},
    {9, "Chinese"},
    {10, "Polish"},
    {11, "Japanese"},
});

constexpr auto errors = std::to_array<ValueMeaning>({
    {valueOf(ErrorNumber::InvalidCall),
     "Invalid call: not the arguments that a method takes, or a "
     "dialog that nobody draws."},
    {valueOf(ErrorNumber::Overflow), "Overflow: a number outside the range of its place."},
    {valueOf(ErrorNumber::Subscript), "Subscript: a place past the end of a table."},
    {valueOf(ErrorNumber::TypeMismatch),
     "Type mismatch: a text that holds no number where one is "
     "needed."},
    {valueOf(ErrorNumber::FileNotFound), "File not found."},
    {valueOf(ErrorNumber::InputPastEnd), "Read past the end: a language file that breaks off."},
    {valueOf(ErrorNumber::FileAccess),
     "File access: a file that cannot be opened, read or "
     "written."},
    {valueOf(ErrorNumber::ObjectNotSet),
     "Object not set: the control is not initialised, or has "
     "ended."},
    {valueOf(ErrorNumber::InvalidPropertyValue),
     "Invalid property value: a line that a list does "
     "not have."},
    {valueOf(ErrorNumber::InvalidPicture), "Invalid picture: a file that holds none."},
});

constexpr auto tables = std::to_array<ValueTable>({
    {"ModulActive",
     "`lStatus` says what an access to the module is doing. The value 2 never comes.", activity},
    {"DataValid", "", dataValid},
    {"DeviceActive",
     "Each value raises `ModulActive` at the end. Mind that the numbers differ from 6 on. The "
     "value 1 "
     "remembers Store and Offline as they stand, a read remembers them as disabled; before either "
     "they count as enabled.",
     deviceActive},
    {"CheckDeviceType",
     "Of the module's identification, `FamilyID` and `DeviceID` are compared. After a failure the "
     "scan rests until the next read.",
     checkDeviceType},
    {"Language", "Other numbers are taken for English.", language},
    {"Errors",
     "A call that goes wrong raises a run-time error with a number and a message that says what "
     "was "
     "wrong with what. A property keeps its value then.",
     errors},
});

}  // namespace

std::span<const ValueTable> valueTables() {
  return tables;
}

}  // namespace tessara
