#include "qt/PanelStructure.h"

#include <algorithm>
#include <array>

namespace tessara {
namespace {

constexpr std::array<CaptionOf, 13> captionTable{{
    {u"LngLabel[0]", u"txtDevAddr"},
    {u"LngLabel[1]", u"ComboComPort"},
    {u"LngLabel[2]", u"ComboBaudrate"},
    {u"LngLabel[3]", u"LabelDeviceName"},
    {u"LngLabel[4]", u"LblFwVersion"},
    {u"LngLabel[5]", u"LabelDeviceDescription"},
    {u"LngLabel[6]", u"LblSerialNumber"},
    {u"LngLabel[7]", u"LblModulState"},
    {u"LngLabel[8]", u"LblChnState"},
    {u"Label1", u"LblVendorID"},
    {u"UniLabel3", u"LblGroupID"},
    {u"UniLabel1", u"LblFamilyID"},
    {u"UniLabel2", u"LblDeviceID"},
}};

constexpr std::array<std::u16string_view, 14> tabTable{u"CmdDeviceInfo",
                                                       u"CmdStoreParameter",
                                                       u"CmdOfflineConfigure",
                                                       u"CmdOpenDiskParameter",
                                                       u"CmdSave2DiskParameter",
                                                       u"CmdPrintConfiguration",
                                                       u"cmdSettings",
                                                       u"CmdHelp",
                                                       u"CmdAbout",
                                                       u"ComboComPort",
                                                       u"ComboBaudrate",
                                                       u"txtDevAddr",
                                                       u"LblModulState",
                                                       u"LblChnState"};

}  // namespace

std::span<const CaptionOf> captions() {
  return captionTable;
}

std::u16string_view captionFor(std::u16string_view widget) {
  const auto* found = std::find_if(captionTable.begin(), captionTable.end(),
                                   [&](const CaptionOf& row) { return row.named == widget; });
  return found == captionTable.end() ? std::u16string_view() : found->caption;
}

const std::vector<ShortcutOf>& shortcuts() {
  static const std::vector<ShortcutOf> table{
      {u"CmdDeviceInfo", QKeySequence(Qt::Key_F5)},
      {u"CmdStoreParameter", QKeySequence(Qt::Key_F6)},
      {u"CmdOpenDiskParameter", QKeySequence(QKeySequence::Open)},
      {u"CmdSave2DiskParameter", QKeySequence(QKeySequence::Save)},
      {u"CmdPrintConfiguration", QKeySequence(QKeySequence::Print)},
      {u"CmdHelp", QKeySequence(Qt::Key_F1)},
  };
  return table;
}

QKeySequence shortcutFor(std::u16string_view widget) {
  const auto& table = shortcuts();
  const auto found = std::find_if(table.begin(), table.end(),
                                  [&](const ShortcutOf& row) { return row.button == widget; });
  return found == table.end() ? QKeySequence() : found->keys;
}

std::span<const std::u16string_view> tabOrder() {
  return tabTable;
}

const std::vector<Growth>& growths() {
  static const std::vector<Growth> table{
      {{u"ComboComPort"}, {u"ComboBaudrate", u"txtDevAddr"}},
      {{u"ComboBaudrate"}, {u"txtDevAddr"}},
      {{u"Frame14", u"LblModulState", u"LblChnState"}, {u"PictureDevice", u"PictureLogo"}},
      {{u"PictureDevice"}, {u"PictureLogo"}},
  };
  return table;
}

bool showsSomething(const Widget& widget) {
  const bool isPicture =
      widget.kind() == WidgetKind::Image || widget.kind() == WidgetKind::PictureBox;
  const bool isEmpty = std::holds_alternative<std::monostate>(widget.state().picture);
  return widget.visible() && !(isPicture && isEmpty);
}

}  // namespace tessara
