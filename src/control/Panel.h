#pragma once

#include <array>

#include "control/Widget.h"

namespace tessara {

/// The panel of the control with its design values, as plain widgets. What draws it observes it.
/// Places are in twips; the panel measures 12045 by 2505.
struct Panel : WidgetOwner {
  static constexpr std::int32_t width = 12045;
  static constexpr std::int32_t height = 2505;

  Widget Frame1{*this, u"Frame1", WidgetKind::Frame};
  Widget Frame2{*this, u"Frame2", WidgetKind::Frame};
  Widget Frame3{*this, u"Frame3", WidgetKind::Frame};
  Widget Frame14{*this, u"Frame14", WidgetKind::Frame};

  Widget ComboComPort{*this, u"ComboComPort", WidgetKind::DropDownList};
  Widget ComboBaudrate{*this,
                       u"ComboBaudrate",
                       WidgetKind::DropDownList,
                       {.text = u"19200",
                        .items = {u"2400", u"4800", u"9600", u"14400", u"19200", u"28800", u"38400",
                                  u"56000", u"57600", u"76800", u"115200"},
                        .index = 4}};
  Widget txtDevAddr{*this, u"txtDevAddr", WidgetKind::TextBox, {.text = u"192"}};
  Widget TimerScanDevice{
      *this, u"TimerScanDevice", WidgetKind::Timer, {.enabled = false, .interval = 4000}};

  /// The captions of the fields.
  std::array<Widget, 9> LngLabel{Widget{*this, u"LngLabel[0]", WidgetKind::Label},
                                 Widget{*this, u"LngLabel[1]", WidgetKind::Label},
                                 Widget{*this, u"LngLabel[2]", WidgetKind::Label},
                                 Widget{*this, u"LngLabel[3]", WidgetKind::Label},
                                 Widget{*this, u"LngLabel[4]", WidgetKind::Label},
                                 Widget{*this, u"LngLabel[5]", WidgetKind::Label},
                                 Widget{*this, u"LngLabel[6]", WidgetKind::Label},
                                 Widget{*this, u"LngLabel[7]", WidgetKind::Label},
                                 Widget{*this, u"LngLabel[8]", WidgetKind::Label}};

  Widget LabelDeviceName{*this, u"LabelDeviceName", WidgetKind::Label};
  Widget LabelDeviceDescription{*this, u"LabelDeviceDescription", WidgetKind::Label};
  Widget LblFwVersion{*this, u"LblFwVersion", WidgetKind::Label};
  Widget LblSerialNumber{*this, u"LblSerialNumber", WidgetKind::Label};
  Widget LblVendorID{*this, u"LblVendorID", WidgetKind::Label};
  Widget LblGroupID{*this, u"LblGroupID", WidgetKind::Label};
  Widget LblFamilyID{*this, u"LblFamilyID", WidgetKind::Label};
  Widget LblDeviceID{*this, u"LblDeviceID", WidgetKind::Label};
  Widget LblModulState{*this, u"LblModulState", WidgetKind::Label};
  Widget LblChnState{*this, u"LblChnState", WidgetKind::Label};

  /// Fixed captions, the same in every language.
  Widget UniLabel1{*this, u"UniLabel1", WidgetKind::Label, {.caption = u"Family ID :"}};
  Widget UniLabel2{*this, u"UniLabel2", WidgetKind::Label, {.caption = u"Device ID :"}};
  Widget UniLabel3{*this, u"UniLabel3", WidgetKind::Label, {.caption = u"Group ID :"}};
  Widget Label1{*this, u"Label1", WidgetKind::Label, {.caption = u"Vendor ID:"}};

  Widget ImageDevState{*this, u"ImageDevState", WidgetKind::Image, {.visible = false}};
  Widget PictureDevice{*this, u"PictureDevice", WidgetKind::Image};
  Widget PictureLogo{*this, u"PictureLogo", WidgetKind::PictureBox};
  /// Picture 1 goes with a module without fault, picture 2 with any other state.
  Widget ImageList1{*this, u"ImageList1", WidgetKind::ImageList, {.items = {u"1", u"2"}}};
  Widget ImageListButtons{*this,
                          u"ImageListButtons",
                          WidgetKind::ImageList,
                          {.items = {u"Upload", u"Download", u"Open", u"Save", u"Settings",
                                     u"Print", u"Offline", u"Help", u"About"}}};

  Widget CmdDeviceInfo{*this, u"CmdDeviceInfo", WidgetKind::Button};
  Widget CmdStoreParameter{*this, u"CmdStoreParameter", WidgetKind::Button};
  Widget CmdOpenDiskParameter{*this, u"CmdOpenDiskParameter", WidgetKind::Button};
  Widget CmdSave2DiskParameter{*this, u"CmdSave2DiskParameter", WidgetKind::Button};
  Widget CmdOfflineConfigure{*this, u"CmdOfflineConfigure", WidgetKind::Button};
  Widget CmdPrintConfiguration{*this, u"CmdPrintConfiguration", WidgetKind::Button};
  Widget CmdHelp{*this, u"CmdHelp", WidgetKind::Button};
  Widget cmdSettings{*this, u"cmdSettings", WidgetKind::Button};
  Widget CmdAbout{*this, u"CmdAbout", WidgetKind::Button};
};

}  // namespace tessara
