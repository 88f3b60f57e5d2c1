#include <array>

#include "base/Text.h"
#include "control/Control.h"
#include "localisation/Language.h"
#include "localisation/Settings.h"
#include "ports/AdapterWords.h"
#include "ports/RegEnum.h"

namespace tessara {
namespace {

constexpr std::u16string_view languageFileMessage = u"Error language file! Set to default!";

/// The table entry with a button's tool tip, and what follows its text.
struct ToolTip {
  Widget Panel::*button;
  TextTable<31> TextTables::*table;
  std::size_t entry;
  std::u16string_view tail;
};

constexpr std::array<ToolTip, 9> toolTips{{
    {&Panel::CmdDeviceInfo, &TextTables::TextModulInfo, 8, u""},
    {&Panel::CmdStoreParameter, &TextTables::TextModulInfo, 9, u""},
    {&Panel::CmdOfflineConfigure, &TextTables::TextModulInfo, 10, u""},
    {&Panel::CmdOpenDiskParameter, &TextTables::TextModulInfo, 12, u""},
    {&Panel::CmdSave2DiskParameter, &TextTables::TextModulInfo, 11, u""},
    {&Panel::cmdSettings, &TextTables::TextModulInfo, 16, u"..."},
    {&Panel::CmdPrintConfiguration, &TextTables::TextModulInfo, 18, u""},
    {&Panel::CmdHelp, &TextTables::TextModulInfo, 19, u""},
    {&Panel::CmdAbout, &TextTables::TextMainFrame, 5, u"..."},
}};

/// Maximum characters of a device type caption in one line; a longer one gets two lines.
constexpr std::size_t oneLineCaption = 13;

}  // namespace

void Control::UserControl_Show() {
  RegistryHelper& registry = live(moduleWide().RegistryHelper, "RegistryHelper");
  showInput(panel.LngLabel[2], panel.ComboBaudrate, u"ShowBaudrateSelection");
  showInput(panel.LngLabel[0], panel.txtDevAddr, u"ShowAddressSelection");
  RegEnum& ports = moduleWide();
  ports.ShowAllComPorts = ReadNumber(registry, u"ShowAllComPorts", decimalSeparator());
  EnumerateComPorts(ports, registry, platform_.registryApi());
  panel.ComboComPort.clearItems();

  const bool bNfc = ports.PortCount > 0 ? choosePort() : chooseReaderWithoutPorts();
  selectCommObject(bNfc);
  raiseNfcReader();
  panel.ComboBaudrate.setText(decimalText(Baudrate));
  loadLanguage();
  applyCaptions();
}

void Control::showInput(Widget& caption, Widget& input, std::u16string_view setting) {
  const bool bShown = ReadNumber(live(moduleWide().RegistryHelper, "RegistryHelper"), setting,
                                 decimalSeparator()) == 1;
  caption.setVisible(bShown);
  input.setVisible(bShown);
}

bool Control::choosePort() {
  const RegEnum& ports = moduleWide();
  for (std::int32_t i = 0; i < ports.PortCount; ++i) {
    panel.ComboComPort.addItem(ports.PortLabels[i]);
  }
  const bool bNfcFound = connectNfcReader() && probeNfcReader();
  if (ComPort == usbReaderPort && bNfcFound) {
    panel.ComboComPort.select(ports.PortCount);
    return true;
  }
  const std::int16_t index = FindPortIndex(ports, ComPort);
  panel.ComboComPort.select(index);
  const std::u16string& label = ports.PortLabels[index];
  if (containsIgnoringCase(label, hartWord)) {
    HartMode = true;
  }
  return (ComPort == usbReaderPort && bNfcFound) || containsIgnoringCase(label, twn4Word);
}

bool Control::chooseReaderWithoutPorts() {
  if (!connectNfcReader()) {
    ReaderMissing = true;
    return false;
  }
  const bool bNfcFound = probeNfcReader();
  ComPort = usbReaderPort;
  panel.ComboComPort.select(0);
  return bNfcFound;
}

void Control::loadLanguage() {
  ModuleWide& wide = moduleWide();
  if (!LoadLanguageFile(AppPathString, Language, live(wide.FileSystem, "FileSystem"),
                        platform_.locale(), wide)) {
    showMessage(std::u16string(languageFileMessage), MessageStyle::Warning);
    LoadDefaultTexts(wide);
  }
}

void Control::applyCaptions() {
  const ModuleWide& texts = moduleWide();
  for (std::size_t i = 0; i <= 6; ++i) {
    panel.LngLabel[i].setCaption(texts.TextModulInfo[i] + u":");
  }
  panel.LngLabel[7].setCaption(texts.TextModulInfo[21] + u": ");
  panel.LngLabel[8].setCaption(texts.TextModulInfo[22] + u": ");

  if (texts.TextModulInfo[3].size() > oneLineCaption) {
    panel.LngLabel[3].setRow(140, 400);
  } else {
    panel.LngLabel[3].setRow(240, 255);
  }
  for (const auto& tip : toolTips) {
    (panel.*tip.button).setToolTipText((texts.*tip.table)[tip.entry] + std::u16string(tip.tail));
  }
}

}  // namespace tessara
