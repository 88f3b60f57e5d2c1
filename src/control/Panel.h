#pragma once

#include <array>

#include "widgets/Widget.h"

namespace tessara {

/// The panel of the control with its design values, as plain widgets. Whatever draws it observes
/// it. Places are in twips; the panel measures 12045 by 2505.
struct Panel : WidgetOwner {
  static constexpr std::int32_t width = 12045;
  static constexpr std::int32_t height = 2505;

  Widget Frame1{*this, u"Frame1", WidgetKind::Frame, {.place = {90, 90, 5055, 1470}}};
  Widget Frame2{*this, u"Frame2", WidgetKind::Frame, {.place = {5235, 90, 6720, 1470}}};
  Widget Frame3{*this, u"Frame3", WidgetKind::Frame, {.place = {5325, 1155, 6540, 330}}};
  Widget Frame14{*this, u"Frame14", WidgetKind::Frame, {.place = {90, 1650, 8925, 765}}};

  Widget ComboComPort{
      *this, u"ComboComPort", WidgetKind::DropDownList, {.place = {180, 1050, 2460, 390}}};
  Widget ComboBaudrate{*this,
                       u"ComboBaudrate",
                       WidgetKind::DropDownList,
                       {.text = u"19200",
                        .items = {u"2400", u"4800", u"9600", u"14400", u"19200", u"28800", u"38400",
                                  u"56000", u"57600", u"76800", u"115200"},
                        .index = 4,
                        .place = {2730, 1050, 1380, 390}}};
  Widget txtDevAddr{
      *this, u"txtDevAddr", WidgetKind::TextBox, {.text = u"192", .place = {4200, 1050, 855, 390}}};
  Widget TimerScanDevice{
      *this, u"TimerScanDevice", WidgetKind::Timer, {.enabled = false, .interval = 4000}};

  /// The captions of the fields.
  std::array<Widget, 9> LngLabel{
      Widget{*this, u"LngLabel[0]", WidgetKind::Label, {.place = {4215, 810, 840, 210}}},
      Widget{*this, u"LngLabel[1]", WidgetKind::Label, {.place = {195, 810, 2445, 210}}},
      Widget{*this, u"LngLabel[2]", WidgetKind::Label, {.place = {2745, 810, 1365, 210}}},
      Widget{*this, u"LngLabel[3]", WidgetKind::Label, {.place = {5415, 240, 1620, 255}}},
      Widget{*this, u"LngLabel[4]", WidgetKind::Label, {.place = {5415, 840, 1620, 255}}},
      Widget{*this, u"LngLabel[5]", WidgetKind::Label, {.place = {5415, 540, 1620, 255}}},
      Widget{*this, u"LngLabel[6]", WidgetKind::Label, {.place = {7995, 840, 1560, 255}}},
      Widget{*this, u"LngLabel[7]", WidgetKind::Label, {.place = {870, 1740, 1680, 255}}},
      Widget{*this, u"LngLabel[8]", WidgetKind::Label, {.place = {870, 2070, 1680, 255}}}};

  Widget LabelDeviceName{
      *this, u"LabelDeviceName", WidgetKind::Label, {.place = {7125, 225, 4680, 255}}};
  Widget LabelDeviceDescription{
      *this, u"LabelDeviceDescription", WidgetKind::Label, {.place = {7125, 540, 4680, 255}}};
  Widget LblFwVersion{*this, u"LblFwVersion", WidgetKind::Label, {.place = {7125, 840, 780, 255}}};
  Widget LblSerialNumber{
      *this, u"LblSerialNumber", WidgetKind::Label, {.place = {9645, 840, 2160, 255}}};
  Widget LblVendorID{*this, u"LblVendorID", WidgetKind::Label, {.place = {6375, 1200, 615, 255}}};
  Widget LblGroupID{*this, u"LblGroupID", WidgetKind::Label, {.place = {7980, 1200, 615, 255}}};
  Widget LblFamilyID{*this, u"LblFamilyID", WidgetKind::Label, {.place = {9585, 1200, 615, 255}}};
  Widget LblDeviceID{*this, u"LblDeviceID", WidgetKind::Label, {.place = {11190, 1200, 615, 255}}};
  Widget LblModulState{
      *this, u"LblModulState", WidgetKind::Label, {.place = {2580, 1740, 6345, 255}}};
  Widget LblChnState{*this, u"LblChnState", WidgetKind::Label, {.place = {2580, 2070, 6345, 255}}};

  /// Fixed captions, the same in every language.
  Widget UniLabel1{*this,
                   u"UniLabel1",
                   WidgetKind::Label,
                   {.caption = u"Family ID :", .place = {8625, 1200, 915, 255}}};
  Widget UniLabel2{*this,
                   u"UniLabel2",
                   WidgetKind::Label,
                   {.caption = u"Device ID :", .place = {10230, 1200, 915, 255}}};
  Widget UniLabel3{*this,
                   u"UniLabel3",
                   WidgetKind::Label,
                   {.caption = u"Group ID :", .place = {7020, 1200, 915, 255}}};
  Widget Label1{*this,
                u"Label1",
                WidgetKind::Label,
                {.caption = u"Vendor ID:", .place = {5415, 1200, 915, 255}}};

  Widget ImageDevState{*this,
                       u"ImageDevState",
                       WidgetKind::Image,
                       {.visible = false, .place = {240, 1785, 480, 480}}};
  Widget PictureDevice{
      *this, u"PictureDevice", WidgetKind::Image, {.place = {9105, 1650, 765, 765}}};
  Widget PictureLogo{
      *this, u"PictureLogo", WidgetKind::PictureBox, {.place = {9960, 1650, 1995, 765}}};
  /// Picture 1 shows a module without fault, picture 2 any other state.
  Widget ImageList1{*this, u"ImageList1", WidgetKind::ImageList, {.items = {u"1", u"2"}}};
  Widget ImageListButtons{*this,
                          u"ImageListButtons",
                          WidgetKind::ImageList,
                          {.items = {u"Upload", u"Download", u"Open", u"Save", u"Settings",
                                     u"Print", u"Offline", u"Help", u"About"}}};

  Widget CmdDeviceInfo{
      *this, u"CmdDeviceInfo", WidgetKind::Button, {.place = {180, 210, 495, 495}}};
  Widget CmdStoreParameter{
      *this, u"CmdStoreParameter", WidgetKind::Button, {.place = {690, 210, 495, 495}}};
  Widget CmdOpenDiskParameter{
      *this, u"CmdOpenDiskParameter", WidgetKind::Button, {.place = {1860, 210, 495, 495}}};
  Widget CmdSave2DiskParameter{
      *this, u"CmdSave2DiskParameter", WidgetKind::Button, {.place = {2370, 210, 495, 495}}};
  Widget CmdOfflineConfigure{
      *this, u"CmdOfflineConfigure", WidgetKind::Button, {.place = {1350, 210, 495, 495}}};
  Widget CmdPrintConfiguration{
      *this, u"CmdPrintConfiguration", WidgetKind::Button, {.place = {2880, 210, 495, 495}}};
  Widget CmdHelp{*this, u"CmdHelp", WidgetKind::Button, {.place = {4050, 210, 495, 495}}};
  Widget cmdSettings{*this, u"cmdSettings", WidgetKind::Button, {.place = {3540, 210, 495, 495}}};
  Widget CmdAbout{*this, u"CmdAbout", WidgetKind::Button, {.place = {4560, 210, 495, 495}}};
};

}  // namespace tessara
