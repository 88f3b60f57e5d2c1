#include "SamplePanel.h"

namespace tessara::testing {
namespace {

constexpr std::array buttons{
    &Panel::CmdDeviceInfo,
    &Panel::CmdStoreParameter,
    &Panel::CmdOfflineConfigure,
    &Panel::CmdOpenDiskParameter,
    &Panel::CmdSave2DiskParameter,
    &Panel::CmdPrintConfiguration,
    &Panel::cmdSettings,
    &Panel::CmdHelp,
    &Panel::CmdAbout,
};
constexpr std::array keys{u"Upload", u"Download", u"Offline", u"Open", u"Save",
                          u"Print",  u"Settings", u"Help",    u"About"};

void showStates(Panel& panel, const std::u16string& module, const std::u16string& channel) {
  panel.LblModulState.setCaption(module);
  panel.LblModulState.setToolTipTitle(u"Modul Status");
  panel.LblModulState.setToolTipText(module);
  panel.LblChnState.setCaption(channel);
  panel.LblChnState.setToolTipTitle(u"Kanal Status");
  panel.LblChnState.setToolTipText(channel);
}

}  // namespace

const PanelTexts german{
    {u"Adresse:", u"COM-Port:", u"Baudrate:", u"Gerätetyp:", u"Firmware Version:", u"Beschreibung:",
     u"Seriennummer:", u"Modul Status: ", u"Kanal Status: "},
    {u"Parameter aus Modul lesen", u"Parameter zum Modul übertragen", u"Offline Konfiguration...",
     u"Parameter von Disk laden...", u"Parameter auf Disk speichern...",
     u"Konfiguration drucken...", u"Sprache...", u"Hilfe...", u"Information..."}};

const PanelTexts russian{
    {u"Адрес:", u"COM-порт:", u"Скорость:", u"Тип устройства:", u"Версия прошивки:", u"Описание:",
     u"Серийный номер:", u"Состояние модуля: ", u"Состояние канала: "},
    {u"Считать параметры из модуля", u"Передать параметры в модуль", u"Автономная настройка...",
     u"Загрузить параметры с диска...", u"Сохранить параметры на диск...",
     u"Печать конфигурации...", u"Язык...", u"Справка...", u"Информация..."}};

const PanelTexts chinese{
    {u"地址:", u"COM 端口:", u"波特率:", u"设备类型:", u"固件版本:", u"描述:", u"序列号:",
     u"模块状态: ", u"通道状态: "},
    {u"从模块读取参数", u"将参数传输到模块", u"离线组态...", u"从磁盘加载参数...",
     u"将参数保存到磁盘...", u"打印组态...", u"语言...", u"帮助...", u"信息..."}};

void bringUp(Panel& panel, const PanelTexts& texts) {
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    (panel.*buttons[i]).setPicture(keys[i]);
    (panel.*buttons[i]).setToolTipText(texts.buttons[i]);
  }
  for (std::size_t i = 0; i < panel.LngLabel.size(); ++i) {
    panel.LngLabel[i].setCaption(texts.fields[i]);
  }
  // More than 13 characters without the colon take two lines.
  const bool isLong = texts.fields[3].size() > 14;
  panel.LngLabel[3].setRow(isLong ? 140 : 240, isLong ? 400 : 255);
  for (Widget* input :
       {&panel.LngLabel[0], &panel.txtDevAddr, &panel.LngLabel[2], &panel.ComboBaudrate}) {
    input->setVisible(false);
  }
  panel.ComboComPort.addItem(u"USB Adapter OKT (COM3)");
  panel.ComboComPort.addItem(u"USB Hart Adapter Viator (COM12)");
  panel.ComboComPort.addItem(u"TWN4 NFC-Adapter (COM5)");
  panel.ComboComPort.addItem(u"NFC-USB-ZORVEN-ADAPTER");
  panel.ComboComPort.select(0);
}

void showInputs(Panel& panel) {
  for (Widget* input :
       {&panel.LngLabel[0], &panel.txtDevAddr, &panel.LngLabel[2], &panel.ComboBaudrate}) {
    input->setVisible(true);
  }
}

void fillHealthy(Panel& panel) {
  panel.LabelDeviceName.setCaption(u"TSR-4120 Pt100 / 2-wire");
  panel.LabelDeviceDescription.setCaption(u"Temperature transmitter, 2 channels, 4...20 mA");
  panel.LblFwVersion.setCaption(u"1.230");
  panel.LblSerialNumber.setCaption(u"20231100457");
  panel.LblVendorID.setCaption(u"208");
  panel.LblGroupID.setCaption(u"1");
  panel.LblFamilyID.setCaption(u"22");
  panel.LblDeviceID.setCaption(u"4");
  panel.ImageDevState.setPicture(1);
  panel.ImageDevState.setVisible(true);
  showStates(panel, u"0 -> Kein Fehler", u"Kein Fehler");
}

void fillLongest(Panel& panel) {
  panel.LabelDeviceName.setCaption(u"TSR-9000 UNIVERSAL MESSUMFORMER");
  panel.LabelDeviceDescription.setCaption(
      u"Universal-Messumformer für Thermoelemente, Widerstände und Normsignale, 3-fach getrennt");
  panel.LblFwVersion.setCaption(u"12.3456");
  panel.LblSerialNumber.setCaption(u"18446744073709551615");
  panel.LblVendorID.setCaption(u"-32768");
  panel.LblGroupID.setCaption(u"-32768");
  panel.LblFamilyID.setCaption(u"-32768");
  panel.LblDeviceID.setCaption(u"-32768");
  panel.ImageDevState.setPicture(2);
  panel.ImageDevState.setVisible(true);
  showStates(panel,
             u"USB-Power; 1054 -> Fehler Versorgungsspg. Mess-System -> Simulation Mess-System -> "
             u"Fehler Register Mess-System -> Fehler Konfiguration Mess-System",
             u"5 -> Bereichsüberschreitung! -> Drahtbruch Sensor! -> Bereichsüberschreitung Chn2! "
             u"-> Interne Temperatur zu hoch!");
}

void disableButtons(Panel& panel) {
  for (std::size_t i = 0; i < 6; ++i) {
    (panel.*buttons[i]).setEnabled(false);
  }
}

QPalette darkPalette() {
  QPalette palette(QColor(0x2b2d31), QColor(0x24262a));
  palette.setColor(QPalette::Base, QColor(0x1d1f22));
  palette.setColor(QPalette::AlternateBase, QColor(0x26282c));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(0xe4e6e9));
    palette.setColor(QPalette::Disabled, role, QColor(0x85888d));
  }
  palette.setColor(QPalette::Button, QColor(0x34373c));
  palette.setColor(QPalette::Highlight, QColor(0x2f78c4));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor(0x34373c));
  palette.setColor(QPalette::ToolTipText, QColor(0xe4e6e9));
  return palette;
}

}  // namespace tessara::testing
