#include "control/Control.h"

#include <exception>
#include <utility>

namespace tessara {

Control::Control(Platform& platform, HostEvents& events) : platform_(platform), events_(events) {}

void Control::UserControl_Initialize() {
  initialized_ = true;
  ResetState();
  bNFCReader = false;

  ModuleWide& wide = moduleWide();
  wide.RegistryHelper = platform_.createRegistryHelper();
  wide.BitFieldHelper = platform_.createBitFieldHelper();
  wide.ModbusCommObject = platform_.createModbusCommObject();
  wide.NfcCommObject = platform_.createNfcCommObject();
  wide.HartCommObject = platform_.createHartCommObject();
  wide.FileSystem = platform_.createFileSystem();
  wide.MessageHelper = platform_.createMessageHelper();

  connectHandlers();
  ApplyButtonImages();
  DataBits = 8;
  StopBits = 1;
  Parity = 2;
  StringsReverse = 1;
  HartMode = false;
}

void Control::UserControl_Terminate() {
  if (!std::exchange(initialized_, false)) {
    return;
  }
  scanTimer_.reset();
  closeDialog();

  ModuleWide& wide = moduleWide();
  wide.FileSystem.reset();
  wide.RegistryHelper.reset();
  wide.BitFieldHelper.reset();
  if (wide.ModbusCommObject) {
    try {
      wide.ModbusCommObject->ShutDown();
    } catch (const std::exception&) {
      // The end of a control cannot be delayed: an object that could not be shut down is released
      // all the same.
    }
  }
  CommObject.reset();
  CommunicationObject.reset();
  wide.ModbusCommObject.reset();
  wide.NfcCommObject.reset();
  wide.HartCommObject.reset();
  wide.MessageHelper.reset();
}

void Control::ResetState() {
  DeviceConnected = false;
  bDataValid = false;
  StatusWord = 0;
  StatusString.clear();
  ConnectAttempts = 0;
  ScanErrorCount = 0;
  SavedCmdEnabled[0] = true;
  SavedCmdEnabled[1] = true;
  SavedCmdEnabled[2] = true;
  SavedCmdEnabled[3] = false;
  bCmdStoreLocked = true;
  OfflineMode = false;
  HostActive = false;
  ReaderMissing = false;
}

void Control::connectHandlers() {
  const auto handle = [this](Widget& widget, void (Control::*handler)()) {
    widget.setClickHandler([this, handler] { (this->*handler)(); });
  };
  handle(panel.ComboComPort, &Control::ComboComPort_Click);
  handle(panel.ComboBaudrate, &Control::ComboBaudrate_Click);
  handle(panel.CmdDeviceInfo, &Control::CmdDeviceInfo_Click);
  handle(panel.CmdOfflineConfigure, &Control::CmdOfflineConfigure_Click);
  handle(panel.CmdOpenDiskParameter, &Control::CmdOpenDiskParameter_Click);
  handle(panel.CmdSave2DiskParameter, &Control::CmdSave2DiskParameter_Click);
  handle(panel.CmdPrintConfiguration, &Control::CmdPrintConfiguration_Click);
  handle(panel.CmdStoreParameter, &Control::CmdStoreParameter_Click);
  handle(panel.cmdSettings, &Control::cmdSettings_Click);
  handle(panel.CmdAbout, &Control::CmdAbout_Click);
  handle(panel.CmdHelp, &Control::CmdHelp_Click);
  handle(panel.TimerScanDevice, &Control::ScanTick);

  scanTimer_ = platform_.eventLoop().createTimer(
      std::chrono::milliseconds(panel.TimerScanDevice.state().interval), [this] { ScanTick(); });
}

void Control::raise(void (HostEvents::*callback)()) {
  if (initialized_) {
    (events_.*callback)();
  }
}

void Control::raiseModulActive(Activity activity) {
  if (initialized_) {
    auto lStatus = static_cast<std::int32_t>(activity);
    events_.ModulActive(lStatus);
  }
}

void Control::raiseNfcReader() {
  if (initialized_) {
    events_.NFCReader(bNFCReader);
  }
}

void Control::setStatus(std::u16string text) {
  StatusString = std::move(text);
  raise(&HostEvents::StatusChange);
}

void Control::setScanTimer(bool bEnabled) {
  panel.TimerScanDevice.setEnabled(bEnabled);
  if (scanTimer_) {
    scanTimer_->setEnabled(bEnabled);
  }
}

void Control::showMessage(const std::u16string& text, MessageStyle style) {
  showMessage(text, style, moduleWide().AppTitle);
}

void Control::showMessage(const std::u16string& text, MessageStyle style,
                          const std::u16string& title) {
  if (!initialized_) {
    return;
  }
  // Events are handled while the box is open, and one of them may end the control.
  const auto helper = moduleWide().MessageHelper;
  lMsgResult = live(helper, "MessageHelper").Show(text, style, title);
}

bool Control::showModally(const std::shared_ptr<Form>& form) {
  openDialog_ = form;
  panel.setBlockedBy(form->name());
  const auto isEndedByItself = [&] {
    const bool isOpen = openDialog_ == form;
    if (isOpen) {
      closeDialog();
    }
    return isOpen;
  };
  try {
    form->showModal(platform_.eventLoop(), formObserver);
  } catch (...) {
    isEndedByItself();
    throw;
  }
  return isEndedByItself();
}

void Control::closeDialog() {
  if (const auto dialog = std::exchange(openDialog_, nullptr)) {
    panel.setBlockedBy({});
    dialog->hide();
  }
}

void Control::yield() {
  platform_.eventLoop().yield();
}

void Control::yieldIf(bool bYields) {
  if (bYields) {
    yield();
  }
}

std::u16string Control::decimalSeparator() const {
  return platform_.locale().decimalSeparator();
}

std::u16string Control::asText(const Variant& value) const {
  return toText(value, decimalSeparator());
}

}  // namespace tessara
