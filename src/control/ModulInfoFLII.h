#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/Variant.h"
#include "control/HostEvents.h"
#include "knowledge/CatalogResult.h"
#include "localisation/LanguageState.h"
#include "platform/Platform.h"
#include "widgets/Form.h"

namespace tessara {

class Control;

/// The device-information panel: connects to a module, shows its identity and status, and keeps the
/// host informed.
///
/// Life cycle: construct, UserControl_Initialize, set the host's properties, show, use, destroy.
/// All calls come from one thread. Platform and events must outlive the control. Properties have
/// the prefixes get_ and put_; the member table (MemberTable.h) lists what hosts in other languages
/// see.
class ModulInfoFLII {
 public:
  ModulInfoFLII(Platform& platform, HostEvents& events);
  ModulInfoFLII(const ModulInfoFLII&) = delete;
  ModulInfoFLII& operator=(const ModulInfoFLII&) = delete;
  /// Runs UserControl_Terminate unless it has already run.
  ~ModulInfoFLII();

  /// Creates the module-wide objects and sets the defaults. Fails with the error of an object that
  /// cannot be created.
  void UserControl_Initialize();
  /// Shuts the communication objects down and releases everything; an error while shutting down is
  /// not reported. May be called inside a callback or a turn of the event loop: the workflow in
  /// progress then ends without a further call or callback. The object itself must stay until that
  /// workflow has returned.
  void UserControl_Terminate();

  /// Brings the panel up: reads the settings, lists the ports, looks for the NFC reader, selects
  /// the communication object, loads the language and sets every caption and tool tip. Call it each
  /// time the host shows the control. Contacts no module. An error stops it where it occurs.
  void UserControl_Show();

  /// The widgets of the panel, by name: `panel().widget(u"LblModulState").caption()`. What draws
  /// the panel observes them.
  [[nodiscard]] WidgetOwner& panel();
  [[nodiscard]] const WidgetOwner& panel() const;

  /// The window that shows the control, by its number in the system; 0 without one. Set by whatever
  /// draws the control.
  [[nodiscard]] WindowHandle get_hWnd() const;
  void put_hWnd(WindowHandle window);

  /// What draws the dialogs of the control; it must live as long as it is set. With null, the
  /// initial value, a button that opens a dialog is an invalid call (error 5). While a dialog is
  /// open, no button of the panel can be pressed.
  void setFormObserver(FormObserver* observer);

  /// The texts of the language in force, which all controls of the thread share.
  [[nodiscard]] static const LanguageState& texts();

  /// The system's decimal separator, used to convert the values of a host.
  [[nodiscard]] std::u16string decimalSeparator() const;

  /// What the catalogue said about the module that was looked up last; nothing before the first
  /// lookup. CatalogFileError also stands for a lookup that an invalid number in the catalogue
  /// ended.
  [[nodiscard]] std::optional<CatalogResult> catalogVerdict() const;
  /// Whether the catalogue hides the firmware row of the last module that it listed.
  [[nodiscard]] bool hidesFirmware() const;

  // Results of the last access that are not properties.
  [[nodiscard]] std::int16_t vendorId() const;
  [[nodiscard]] std::int16_t groupId() const;
  /// The last device or channel status word that was read, and the last LED status word.
  [[nodiscard]] std::int16_t statusWord() const;
  [[nodiscard]] std::int32_t ledWord() const;

  // Properties. Writing a value outside the range of a 16-bit field raises an overflow (error 6)
  // and leaves the field unchanged.
  [[nodiscard]] std::int32_t get_DeviceID() const;
  void put_DeviceID(std::int32_t value);
  [[nodiscard]] std::int32_t get_FamilyID() const;
  void put_FamilyID(std::int32_t value);
  [[nodiscard]] double get_FirmwareVers() const;
  void put_FirmwareVers(double value);
  [[nodiscard]] Variant get_DeviceName() const;
  void put_DeviceName(const Variant& value);
  [[nodiscard]] Variant get_CmdLineString() const;
  void put_CmdLineString(const Variant& value);
  [[nodiscard]] Variant get_FwVersion() const;
  /// Stored with a point for the first comma and padded by its length: 1.2 becomes 1.200.
  void put_FwVersion(const Variant& value);
  [[nodiscard]] Variant get_SerialNumber() const;
  [[nodiscard]] Variant get_PackbLink() const;
  void put_PackbLink(const Variant& value);
  [[nodiscard]] Variant get_ProductLink() const;
  void put_ProductLink(const Variant& value);
  [[nodiscard]] Variant get_DatasheetLink() const;
  void put_DatasheetLink(const Variant& value);
  [[nodiscard]] Variant get_VersionString() const;
  void put_VersionString(const Variant& value);
  [[nodiscard]] std::uint8_t get_DevAddr() const;
  /// The selected communication object; null before one is selected.
  [[nodiscard]] CommunicationObject* get_CommunicationObject() const;
  /// 2 in offline mode, else 1 with valid data, else 0.
  [[nodiscard]] std::int32_t get_DataValid() const;
  /// 0 clears data and offline mode; any other value sets the data valid and nothing else.
  void put_DataValid(std::int32_t value);
  [[nodiscard]] std::int32_t get_DeviceConnected() const;
  /// Only 1 is true.
  void put_DeviceConnected(std::int32_t value);
  [[nodiscard]] std::int32_t get_ComPort() const;
  void put_ComPort(std::int32_t value);
  [[nodiscard]] std::int32_t get_DataBits() const;
  [[nodiscard]] std::int32_t get_StopBits() const;
  [[nodiscard]] std::int32_t get_Parity() const;
  [[nodiscard]] std::int32_t get_Baudrate() const;
  /// Bit/s; need not be in the list. Writing the current value does nothing.
  void put_Baudrate(std::int32_t value);
  [[nodiscard]] std::int32_t get_MaxBaudrate() const;
  [[nodiscard]] Variant get_AppPathString() const;
  void put_AppPathString(const Variant& value);
  [[nodiscard]] std::int16_t get_Language() const;
  /// Does not reload the texts.
  void put_Language(std::int16_t value);
  [[nodiscard]] Variant get_StatusString() const;
  /// Raises StatusChange, even with the current text.
  void put_StatusString(const Variant& value);
  /// The current texts of the status labels.
  [[nodiscard]] Variant get_ChnStatusString() const;
  [[nodiscard]] Variant get_ModulStatusString() const;
  /// Caption and tool tip of the description label; stored nowhere else.
  void put_DescriptionString(const Variant& value);
  [[nodiscard]] Variant get_ManufactureLogoString() const;
  /// Shows the file of that name in AppPathString, else the one that the setting Logo names, else
  /// none. A file that is not a picture is error 481, and the old picture stays.
  void put_ManufactureLogoString(const Variant& value);
  /// Shows the file at AppPathString directly followed by the name, else none. Errors as above.
  void put_DeviceLogoString(const Variant& value);
  [[nodiscard]] Variant get_DevicePictureString() const;
  /// Stores the path formed as for the device logo, or an empty one if there is no such file.
  void put_DevicePictureString(const Variant& value);
  [[nodiscard]] std::int32_t get_StringsReverse() const;
  [[nodiscard]] std::int32_t get_NFCReader() const;
  [[nodiscard]] std::u16string get_GetNFCMCURevison() const;
  [[nodiscard]] std::int32_t get_QuickSetupMode() const;
  [[nodiscard]] std::int32_t get_QuickSetup() const;
  /// Only 1 is true.
  void put_QuickSetup(std::int32_t value);
  /// Declares what the host is doing: 0, 1 and 3 to 7; other values do nothing.
  void put_DeviceActive(std::int32_t lActive);
  /// Reads the module and compares it with the fields: 1 for the same family, device and firmware,
  /// 0 for another module or none, 3 for a failed access.
  std::int32_t get_CheckDeviceType();
  /// Raises DataTransfer and returns false.
  [[nodiscard]] bool get_DataTrafic();

  // Methods.
  /// Shows the texts of status words that the host has read itself. Always true; a word outside the
  /// signed 16-bit range raises an overflow (error 6) and changes nothing.
  bool SetChnStatus(std::int32_t& lInStatus, std::int32_t& lOutStatus);
  bool SetModuleStatus(std::int32_t& lDevStatus, std::int32_t& lLedStatus);
  /// The lock of the store button. Each returns an empty result.
  Variant LockCmdStore();
  Variant UnLockCmdStore();
  Variant EnableCmdStore();
  Variant DisableCmdStore();
  /// Reads the module as the read button does, or reports that there is no interface.
  void AutomaticConnection();
  /// Reads the firmware version into fields and label.
  void GetFWVersion();
  /// Reads the identification record into the fields; the labels do not change.
  void GetDeviceInformation();
  /// Reads the status words and shows them.
  void GetDeviceStatus();

 private:
  /// Gives tests access to the state (tests/support/Inside.h); the product does not define it.
  friend class Inside;

  std::unique_ptr<Control> control_;
};

}  // namespace tessara
