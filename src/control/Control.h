#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "control/Fields.h"
#include "control/HostEvents.h"
#include "control/ModuleWide.h"
#include "control/Panel.h"
#include "knowledge/CatalogResult.h"
#include "platform/Platform.h"
#include "widgets/Form.h"

namespace tessara {

struct StatusAccess;

/// The control behind ModulInfoFLII: its state, its panel and its workflows. Each routine is
/// defined in the folder that it is listed under.
class Control : public Fields {
 public:
  Control(Platform& platform, HostEvents& events);

  Panel panel;

  /// The window that shows the control.
  WindowHandle hWnd = 0;
  /// What draws the dialogs.
  FormObserver* formObserver = nullptr;

 private:
  /// Hosts reach the state through its properties and methods.
  friend class ModulInfoFLII;

  // control/
  void UserControl_Initialize();
  void UserControl_Terminate();
  void UserControl_Show();
  [[nodiscard]] std::u16string decimalSeparator() const;
  void ResetState();
  void ApplyButtonImages();
  void connectHandlers();
  // A control that has ended raises nothing more, even while a workflow is still returning.
  void raise(void (HostEvents::*callback)());
  void raiseModulActive(Activity activity);
  void raiseNfcReader();
  /// With AppTitle as the title, or with the given one.
  void showMessage(const std::u16string& text, MessageStyle style);
  void showMessage(const std::u16string& text, MessageStyle style, const std::u16string& title);
  /// Shows a dialog and blocks the panel until it has hidden itself. False if the control ended in
  /// the meantime; the caller must then do nothing more.
  bool showModally(const std::shared_ptr<Form>& form);
  void closeDialog();
  void setStatus(std::u16string text);
  void setScanTimer(bool bEnabled);
  void stopScan();
  void yield();
  void yieldIf(bool bYields);
  [[nodiscard]] std::u16string asText(const Variant& value) const;
  void SetStoreButton(const bool& bEnabled);
  void SetReadButton(const bool& bEnabled);
  void SetOfflineButton(const bool& bEnabled);
  void SetOpenButton(const bool& bEnabled);
  void SetSaveButton(const bool& bEnabled);
  void SetPrintButton(const bool& bEnabled);
  void ClearPanel();
  void saveButtons();
  void saveAndDisableButtons();
  void restoreButtons(bool bOfflineEnabled);
  void CmdOfflineConfigure_Click();
  void CmdOpenDiskParameter_Click();
  void CmdSave2DiskParameter_Click();
  void CmdPrintConfiguration_Click();

  void showInput(Widget& caption, Widget& input, std::u16string_view setting);
  /// Each returns true if the path is an NFC reader.
  bool choosePort();
  bool chooseReaderWithoutPorts();
  void loadLanguage();
  void applyCaptions();
  /// The first step of detecting the reader, and the remaining ones.
  bool connectNfcReader();
  bool probeNfcReader();
  void selectCommObject(bool bNfc);

  bool FindLogoFile(const std::u16string& appPath, const std::u16string& name);
  void loadPicture(Widget& widget, const std::u16string& path);

  // dialogs/
  void cmdSettings_Click();
  void CmdAbout_Click();
  void CmdHelp_Click();

  // ports/
  void ComboComPort_Click();
  void ComboBaudrate_Click();

  // access/
  [[nodiscard]] tessara::CommunicationObject& comm() const;
  /// Without a selected object the connection counts as failed.
  bool connect();
  void closeConnection();
  void closeAfterFailure();
  void storeIdentification(const DeviceWords& words);
  DeviceWords readWords(std::int32_t address, std::int16_t count);

  void CmdDeviceInfo_Click();
  void prepareRead();
  /// True if the read was completed.
  bool readModule();
  void readIdentification();
  CatalogResult readByVendor();
  CatalogResult readHartTexts();
  CatalogResult readRegisters();
  double readVersion(std::int32_t address);
  void takeFirmwareVersion();
  void readStatusByVendor();
  void finishRead();
  /// After a failed read: true if it must be repeated; otherwise the read has been given up.
  bool mayRetryRead();

  void readRegisterStatus(const StatusAccess& how);
  std::int16_t readErrorWord(bool bTwice);
  void readHartStatus(const StatusAccess& how);
  void showModuleStatus(std::int16_t statusWord, std::int32_t ledWord);
  void showModulState(std::u16string text, std::int32_t ledWord);
  void showChnState(std::u16string text);

  void ScanTick();
  void ScanDevice();
  void failedScan();

  void CmdStoreParameter_Click();
  std::int32_t checkDeviceType();
  /// Waits until no other access holds the connection.
  void waitAndRead(const std::function<void()>& read);
  /// Connects, reads and closes; false if there was no connection.
  bool connectAndRead(const std::function<void()>& read);
  void failedQuery(Activity activity, bool bStopsScan);

  // knowledge/
  /// Finds the module in the catalogue and leaves what it says in the fields. Places that must hold
  /// a number and do not raise a type mismatch (error 13); what was written so far stays.
  CatalogResult LookupDevice(std::int32_t family, std::int32_t device);

  Platform& platform_;
  HostEvents& events_;
  /// The dialog that blocks the panel; null for none.
  std::shared_ptr<Form> openDialog_;
  std::unique_ptr<PeriodicTimer> scanTimer_;
  bool initialized_ = false;
};

}  // namespace tessara
