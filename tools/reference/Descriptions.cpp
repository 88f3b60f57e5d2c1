#include "tools/reference/Descriptions.h"

#include <array>

namespace tessara {
namespace {

using enum MemberKind;

constexpr auto memberDescriptions = std::to_array<Description>({
    {"DeviceID", Property,
     "Fourth word of the module's identification. Writing a value outside -32768 to 32767 is error "
     "6."},
    {"FamilyID", Property,
     "Third word of the identification; some status texts depend on it. Range as for `DeviceID`."},
    {"FirmwareVers", Property,
     "Firmware version as a number, stored with 32-bit precision. 0 before a read."},
    {"DeviceName", Property,
     "Name stored in the module, padding included. Writing it does not change the panel."},
    {"CmdLineString", Property, "A text for the host's own use; the control ignores it."},
    {"FwVersion", Property,
     "Firmware version as text. Writing it replaces the first comma by a point and pads by the "
     "number of characters: one gets `.000`, three get `00`, four get `0`; `1,2` becomes `1.200`."},
    {"SerialNumber", Property, "Serial number with all its digits; 0 before a read."},
    {"PackbLink", Property, "Leaflet of the module, from the catalogue."},
    {"ProductLink", Property, "Product page of the module, from the catalogue."},
    {"DatasheetLink", Property,
     "Data sheet of the module in the user's language, from the catalogue. The three links keep "
     "their values until the catalogue finds another module."},
    {"VersionString", Property, "Version that the about box shows."},
    {"DevAddr", Property,
     "Address of the module, taken from the panel by the last read; 0 before a read."},
    {"CommunicationObject", Property,
     "The selected path to the module, for the host's own transfers; nothing before the control is "
     "shown. It reads as its name where only values can be passed."},
    {"DataValid", Property,
     "Whether the panel shows a module, see [DataValid](#datavalid). Writing 0 clears valid data "
     "and offline mode; any other value sets the data valid and does not change offline mode."},
    {"DeviceConnected", Property,
     "1 while an access holds the connection, else 0. A host may write 1 to suspend the scan; any "
     "other value, -1 included, counts as 0."},
    {"ComPort", Property,
     "Number of the port; 999 is the USB NFC reader. Set it before the control is shown; the list "
     "does not follow later writes. Range as for `DeviceID`."},
    {"DataBits", Property, "Always 8."},
    {"StopBits", Property, "Always 1."},
    {"Parity", Property, "Always 2: even."},
    {"Baudrate", Property,
     "Rate in bit/s; need not be in the panel's list. The second attempt of a read leaves it at "
     "115200. Writing the current value does nothing."},
    {"MaxBaudrate", Property, "Always 0; kept for hosts that ask."},
    {"AppPathString", Property,
     "Folder of the language files, the logo and the pictures. Set it before the control is shown. "
     "Catalogue and help are beside the control's own file instead."},
    {"Language", Property,
     "Number of the language, see [Language](#language). Texts are loaded when the control is "
     "shown; a later write changes only the language of data sheets."},
    {"StatusString", Property,
     "The line of text that the host shows to the user. Writing it raises `StatusChange`, even "
     "with the current text."},
    {"SetChnStatus", Method,
     "Shows the channel status of two words that the host has read itself. Always true. A word "
     "outside -32768 to 32767 is error 6, and nothing changes."},
    {"ChnStatusString", Property, "The channel status that the panel shows now."},
    {"SetModuleStatus", Method,
     "Shows the module status of two words that the host has read itself. Result and errors as for "
     "`SetChnStatus`."},
    {"ModulStatusString", Property, "The module status that the panel shows now."},
    {"DescriptionString", Property, "Shown as the description of the device, with its tool tip."},
    {"ManufactureLogoString", Property,
     "Name of the manufacturer's logo in `AppPathString`. If there is no such file, the setting "
     "`Logo` names another; if that is missing too, no logo is shown. Reads as the path of the "
     "file found last. A file that is not a picture is error 481, and the old picture stays."},
    {"DeviceLogoString", Property,
     "File of the device's logo, appended directly to `AppPathString`: the host supplies the "
     "separator. Without such a file no logo is shown. Errors as for `ManufactureLogoString`."},
    {"DevicePictureString", Property,
     "File of a picture that the host shows itself, appended directly to `AppPathString`. Reads as "
     "its path, or as empty text if there is no such file."},
    {"StringsReverse", Property, "Mode value of the catalogue for the host; initially 1."},
    {"NFCReader", Property, "1 if the selected path is an NFC reader, else 0."},
    {"GetNFCMCURevison", Property,
     "Revision of the USB NFC reader's processor, three numbers joined by points; empty without a "
     "reader."},
    {"QuickSetupMode", Property, "Mode value of the catalogue for the host."},
    {"QuickSetup", Property,
     "A flag for the host's own use: exactly 1 sets it, any other value clears it. Reads as 1 or "
     "0."},
    {"LockCmdStore", Method, "Disables the store button and locks it against `EnableCmdStore`."},
    {"UnLockCmdStore", Method, "Removes the lock and enables the store button."},
    {"EnableCmdStore", Method, "Enables the store button unless it is locked."},
    {"DisableCmdStore", Method,
     "Disables the buttons for storing, opening, saving and printing. The lock does not change."},
    {"DeviceActive", Property,
     "What the host is doing, see [DeviceActive](#deviceactive). Other values do nothing."},
    {"DataTrafic", Property, "Raises `DataTransfer` on each read access, and reads as false."},
    {"AutomaticConnection", Method,
     "Reads the module as the read button does. If there is neither a port nor a reader, raises "
     "`ModulActive` with 6 instead."},
    {"CheckDeviceType", Property,
     "Reads identification and firmware of the module and compares them with those of the last "
     "read, see [CheckDeviceType](#checkdevicetype)."},
    {"GetFWVersion", Method,
     "Reads the firmware version into `FirmwareVers`, `FwVersion` and the panel. Waits while "
     "another access holds the connection."},
    {"GetDeviceInformation", Method,
     "Reads the identification into its properties and does not change the panel. Waits like "
     "`GetFWVersion`."},
    {"GetDeviceStatus", Method,
     "Reads the status words and shows them. Does not wait: do not call it during another access."},
    {"ModulActive", Callback,
     "The control's activity has changed, see [ModulActive](#modulactive)."},
    {"StatusChange", Callback, "`StatusString` was written or cleared; the host reads it."},
    {"SetConfiguration", Callback,
     "The user wants the parameters in the module, and the connected module is the one that was "
     "read: the host transfers them through `CommunicationObject`."},
    {"SaveConfiguration", Callback, "The user wants the parameters saved on disk."},
    {"LoadConfiguration", Callback, "The user wants parameters loaded from disk."},
    {"PrintConfiguration", Callback, "The user wants the parameters printed."},
    {"DataTransfer", Callback, "The host has read `DataTrafic`."},
    {"NFCReader", Callback,
     "The path to the module was set: at the end of the start, after each choice of a port and "
     "after each successful read. True for an NFC reader."},
});

}  // namespace

std::span<const Description> descriptions() {
  return memberDescriptions;
}

}  // namespace tessara
