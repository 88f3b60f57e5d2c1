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
     "An access has ended and the connection is closed, or the host wrote 0 to `DeviceActive`."},
    {valueOf(Activity::Busy), "An access has begun, or the host wrote 1 to `DeviceActive`."},
    {valueOf(Activity::ConnectionFailed),
     "The module could not be reached and there are no data, or the host wrote 3 to "
     "`DeviceActive`."},
    {valueOf(Activity::Scanning),
     "A pass of the background scan has begun. A successful pass raises no further value; a failed "
     "one raises 0."},
    {valueOf(Activity::HostWorkEnded), "The host wrote 5 to `DeviceActive`."},
    {valueOf(Activity::NoInterface), "`AutomaticConnection` found neither a port nor a reader."},
    {valueOf(Activity::PassedOn7), "The host wrote 6 to `DeviceActive`."},
    {valueOf(Activity::PassedOn8), "The host wrote 7 to `DeviceActive`."},
});

constexpr auto dataValid = std::to_array<ValueMeaning>({
    {0, "No module has been read, or the last read failed."},
    {1, "The last read was completed."},
    {2, "The user works offline."},
});

constexpr auto deviceActive = std::to_array<ValueMeaning>({
    {0,
     "Host idle: Read, Open, Save and Print are enabled, Store and Offline return to their state "
     "before the work. The scan may run again."},
    {1, "Host busy: all six buttons are disabled, and the scan pauses."},
    {3,
     "Host failed: Read, Offline, Open and Save are enabled, Print is disabled, Store returns to "
     "its state before the work. The scan ends until the next read."},
    {4, "Host busy, buttons unchanged: the scan pauses."},
    {5, "Host idle without a module: as 3, but Print does not change."},
    {6, "Raises `ModulActive` with 7, and nothing else."},
    {7, "Raises `ModulActive` with 8, and nothing else."},
});

constexpr auto checkDeviceType = std::to_array<ValueMeaning>({
    {0, "Another family, device or firmware; or no connection."},
    {1, "Family, device and firmware are those of the last read."},
    {3, "The read failed."},
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
     "Invalid call: wrong number of arguments, an unknown widget, or a dialog that nobody draws."},
    {valueOf(ErrorNumber::Overflow), "Overflow: a number outside the range of its place."},
    {valueOf(ErrorNumber::Subscript), "Subscript: a place past the end of a table."},
    {valueOf(ErrorNumber::TypeMismatch),
     "Type mismatch: a text that is not a number where one is needed."},
    {valueOf(ErrorNumber::FileNotFound), "File not found."},
    {valueOf(ErrorNumber::InputPastEnd), "Read past the end: a truncated language file."},
    {valueOf(ErrorNumber::FileAccess),
     "File access: a file that cannot be opened, read or written."},
    {valueOf(ErrorNumber::ObjectNotSet),
     "Object not set: the control is not initialised, or has ended."},
    {valueOf(ErrorNumber::InvalidPropertyValue),
     "Invalid property value: a line that a list does not have."},
    {valueOf(ErrorNumber::InvalidPicture), "Invalid picture: a file that is not a picture."},
});

constexpr auto tables = std::to_array<ValueTable>({
    {"ModulActive", "`lStatus` is the activity of the control. The value 2 is not used.", activity},
    {"DataValid", "", dataValid},
    {"DeviceActive",
     "Each value raises `ModulActive` at the end; note that the numbers differ from 6 on. The "
     "value 1 saves the state of Store and Offline, a read saves them as disabled; before either "
     "they count as enabled.",
     deviceActive},
    {"CheckDeviceType",
     "Of the module's identification, `FamilyID` and `DeviceID` are compared. After a failure the "
     "scan stops until the next read.",
     checkDeviceType},
    {"Language", "Other numbers count as English.", language},
    {"Errors",
     "A failing call raises a run-time error with a number and a message that says what was wrong "
     "with what. A property then keeps its value.",
     errors},
});

}  // namespace

std::span<const ValueTable> valueTables() {
  return tables;
}

}  // namespace tessara
