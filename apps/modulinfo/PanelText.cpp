#include "PanelText.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "base/Variant.h"

namespace tessara {

namespace {

using PanelRow = std::pair<std::string, std::string>;

/// A row of the panel: the caption and what stands beside it.
constexpr std::array<std::pair<std::u16string_view, std::u16string_view>, 13> panelRows{
    {{u"LngLabel[1]", u"ComboComPort"},
     {u"LngLabel[2]", u"ComboBaudrate"},
     {u"LngLabel[0]", u"txtDevAddr"},
     {u"LngLabel[3]", u"LabelDeviceName"},
     {u"LngLabel[5]", u"LabelDeviceDescription"},
     {u"LngLabel[4]", u"LblFwVersion"},
     {u"LngLabel[6]", u"LblSerialNumber"},
     {u"Label1", u"LblVendorID"},
     {u"UniLabel3", u"LblGroupID"},
     {u"UniLabel1", u"LblFamilyID"},
     {u"UniLabel2", u"LblDeviceID"},
     {u"LngLabel[7]", u"LblModulState"},
     {u"LngLabel[8]", u"LblChnState"}}};

std::string valueOf(const Widget& widget) {
  return withoutPadding(widget.kind() == WidgetKind::Label ? widget.caption() : widget.text());
}

std::vector<PanelRow> rowsOf(const ModulInfoFLII& control) {
  std::vector<PanelRow> rows;
  for (const auto& [caption, value] : panelRows) {
    const Widget& widget = control.panel().widget(value);
    if (widget.visible()) {
      rows.emplace_back(withoutPadding(control.panel().widget(caption).caption()), valueOf(widget));
    }
  }
  const auto addUnlessEmpty = [&](const std::string& caption, const Variant& value) {
    const std::u16string text = toText(value, {});
    if (!text.empty()) rows.emplace_back(caption, withoutPadding(text));
  };
  addUnlessEmpty("ProductLink:", control.get_ProductLink());
  addUnlessEmpty("DatasheetLink:", control.get_DatasheetLink());
  addUnlessEmpty("PackbLink:", control.get_PackbLink());
  addUnlessEmpty(toUtf8(control.texts().TextModulInfo[7]) + ":", control.get_StatusString());
  return rows;
}

/// The columns that a text takes in a terminal: East Asian characters take two.
std::size_t columns(const std::string& text) {
  constexpr char16_t firstWide = 0x2E80;
  const std::u16string signs = fromUtf8(text);
  const auto wide =
      std::count_if(signs.begin(), signs.end(), [](char16_t sign) { return sign >= firstWide; });
  return signs.size() + static_cast<std::size_t>(wide);
}

}  // namespace

std::string withoutPadding(std::u16string_view text) {
  std::u16string plain(text);
  for (char16_t& sign : plain) {
    if (sign < u' ') sign = u' ';
  }
  plain.erase(plain.find_last_not_of(u' ') + 1);
  return toUtf8(plain);
}

std::string panelText(const ModulInfoFLII& control) {
  const std::vector<PanelRow> rows = rowsOf(control);
  std::size_t width = 0;
  for (const auto& [caption, value] : rows) width = std::max(width, columns(caption));
  std::string text;
  for (const auto& [caption, value] : rows) {
    const std::string gap(value.empty() ? 0 : width - columns(caption) + 2, ' ');
    text.append(caption).append(gap).append(value).append("\n");
  }
  return text;
}

}  // namespace tessara
