#include "tools/reference/Descriptions.h"

#include <array>

namespace tessara {
namespace {

using enum MemberKind;

constexpr auto table = std::to_array<Description>({
    {"DeviceID", Property,
     "Fourth word of the module's identification. Writing beyond -32768 to 32767 is error 6."},
    {"FamilyID", Property,
     "Third word of the identification; some status texts depend on it. Range as `DeviceID`."},
    {"FirmwareVers", Property,
     "Firmware version as a number, kept with the precision of 32 bits. 0 before a read."},
    {"DeviceName", Property,
     "Name stored in the module, with the characters that fill it up. Writing it leaves the panel "
     "as it is."},
    {"CmdLineString", Property, "A text of the host's; the control does nothing with it."},
    {"FwVersion", Property,
     "Firmware version as text. Writing turns the first comma into a point and fills up by the "
     "number of characters: one gets `.000`, three get `00`, four get `0`; `1,2` becomes `1.200`."},
    {"SerialNumber", Property, "Serial number with all its digits; 0 before a read."},
    {"PackbLink", Property, "Leaflet of the module, from the catalogue."},
    {"ProductLink", Property, "Product page of the module, from the catalogue."},
    {"DatasheetLink", Property,
     "Data sheet of the module in the user's language, from the catalogue. The three links keep "
     "their values until the catalogue finds another module."},
    {"VersionString", Property, "Version that the about box shows."},
    {"DevAddr", Property,
     "Address of the module, as the last read took it from the panel; 0 before a read."},
    {"CommunicationObject", Property,
     "The selected path to the module, for the host's own transfers; nothing before the control "
     "was shown. It reads as its name where only values pass."},
    {"DataValid", Property,
     "Whether the panel shows a module, see [DataValid](#datavalid). Writing 0 ends valid data and "
     "offline mode; any other value sets the data valid and leaves offline mode as it is."},
    {"DeviceConnected", Property,
     "1 while an access holds the connection, else 0. A host may write 1 to hold the scan off; "
     "every other value counts as 0, -1 too."},
    {"ComPort", Property,
     "Number of the port; 999 is the USB NFC reader. To be set before the control is shown; the "
     "list does not follow later writes. Range as `DeviceID`."},
    {"DataBits", Property, "Always 8."},
    {"StopBits", Property, "Always 1."},
    {"Parity", Property, "Always 2: even."},
    {"Baudrate", Property,
     "Rate in bit/s; need not be one of the panel's list. The second attempt of a read leaves it "
     "at 115200. Writing the value that it has does nothing."},
    {"MaxBaudrate", Property, "Always 0; kept for hosts that ask."},
    {"AppPathString", Property,
     "Folder of the language files, the logo and the pictures. To be set before the control is "
     "shown. Catalogue and help lie beside the control's own file instead."},
    {"Language", Property,
     "Number of the language, see [Language](#language). Texts are loaded when the control is "
     "shown; a later write changes the language of data sheets alone."},
    {"StatusString", Property,
     "The line of text that the host shows to the user. Writing it raises `StatusChange`, also "
     "with the text that it holds already."},
    {"SetChnStatus", Method,
     "Shows the channel status of two words that the host has read itself. Always true. A word "
     "beyond -32768 to 32767 is error 6, and nothing changes."},
    {"ChnStatusString", Property, "The channel status as the panel shows it at this moment."},
    {"SetModuleStatus", Method,
     "Shows the module status of two words that the host has read itself. Result and errors as "
     "`SetChnStatus`."},
    {"ModulStatusString", Property, "The module status as the panel shows it at this moment."},
    {"DescriptionString", Property, "Shown as the description of the device, with its tool tip."},
    {"ManufactureLogoString", Property,
     "Name of the manufacturer's logo in `AppPathString`. If there is no such file, the setting "
     "`Logo` names another; if there is none either, no logo is shown. Reads as the path of the "
     "file found last. A file that holds no picture is error 481, and the old picture stays."},
    {"DeviceLogoString", Property,
     "File of the device's logo, put directly behind `AppPathString`: the host brings the "
     "separator. Without such a file no logo is shown. Errors as `ManufactureLogoString`."},
    {"DevicePictureString", Property,
     "File of a picture that the host shows itself, put directly behind `AppPathString`. Reads as "
     "its path, or as empty text if there is no such file."},
    {"StringsReverse", Property, "Mode value of the catalogue for the host; 1 at first."},
    {"NFCReader", Property, "1 if the selected path is an NFC reader, else 0."},
    {"GetNFCMCURevison", Property,
     "Revision of the USB NFC reader's processor, three numbers joined by points; empty without "
     "one."},
    {"QuickSetupMode", Property, "Mode value of the catalogue for the host."},
    {"QuickSetup", Property,
     "A flag of the host's: exactly 1 sets it, every other value clears it. Reads as 1 or 0."},
    {"LockCmdStore", Method, "Disables the store button and keeps `EnableCmdStore` from it."},
    {"UnLockCmdStore", Method, "Ends the lock and enables the store button."},
    {"EnableCmdStore", Method, "Enables the store button unless it is locked."},
    {"DisableCmdStore", Method,
     "Disables the buttons for storing, opening, saving and printing. The lock stays as it is."},
    {"DeviceActive", Property,
     "What the host is doing, see [DeviceActive](#deviceactive). Other values do nothing."},
    {"DataTrafic", Property, "Raises `DataTransfer` at each reading, and reads as false."},
    {"AutomaticConnection", Method,
     "Reads the module as the read button does. If there is neither a port nor a reader, "
     "`ModulActive` comes with 6 instead."},
    {"CheckDeviceType", Property,
     "Reads identification and firmware of the module and compares them with what was read before, "
     "see [CheckDeviceType](#checkdevicetype)."},
    {"GetFWVersion", Method,
     "Reads the firmware version into `FirmwareVers`, `FwVersion` and the panel. Waits while "
     "another access holds the connection."},
    {"GetDeviceInformation", Method,
     "Reads the identification into its properties and leaves the panel as it is. Waits as "
     "`GetFWVersion`."},
    {"GetDeviceStatus", Method,
     "Reads the status words and shows them. Does not wait: not to be called in the middle of "
     "another access."},
    {"ModulActive", Callback,
     "The control's activity has changed, see [ModulActive](#modulactive)."},
    {"StatusChange", Callback, "`StatusString` was written or cleared; the host reads it."},
    {"SetConfiguration", Callback,
     "The user wants the parameters in the module, and the connected module is the one that was "
     "read: the host transfers them, by `CommunicationObject`."},
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
  return table;
}

}  // namespace tessara
