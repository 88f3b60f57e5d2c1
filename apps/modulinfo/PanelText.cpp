#include "PanelText.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "control/ModuleWide.h"

namespace tessara {

namespace {

using Row = std::pair<std::string, std::string>;

/// A row of the panel: the caption and what stands beside it.
std::vector<std::pair<const Widget*, const Widget*>> panelRows(const Panel& panel) {
  return {{&panel.LngLabel[1], &panel.ComboComPort},
          {&panel.LngLabel[2], &panel.ComboBaudrate},
          {&panel.LngLabel[0], &panel.txtDevAddr},
          {&panel.LngLabel[3], &panel.LabelDeviceName},
          {&panel.LngLabel[5], &panel.LabelDeviceDescription},
          {&panel.LngLabel[4], &panel.LblFwVersion},
          {&panel.LngLabel[6], &panel.LblSerialNumber},
          {&panel.Label1, &panel.LblVendorID},
          {&panel.UniLabel3, &panel.LblGroupID},
          {&panel.UniLabel1, &panel.LblFamilyID},
          {&panel.UniLabel2, &panel.LblDeviceID},
          {&panel.LngLabel[7], &panel.LblModulState},
          {&panel.LngLabel[8], &panel.LblChnState}};
}

std::string valueOf(const Widget& widget) {
  return withoutPadding(widget.kind() == WidgetKind::Label ? widget.caption() : widget.text());
}

std::vector<Row> rowsOf(const ModulInfoFLII& control) {
  std::vector<Row> rows;
  for (const auto& [caption, value] : panelRows(control.panel)) {
    if (value->visible()) rows.emplace_back(withoutPadding(caption->caption()), valueOf(*value));
  }
  const auto addUnlessEmpty = [&](const std::string& caption, const std::u16string& value) {
    if (!value.empty()) rows.emplace_back(caption, withoutPadding(value));
  };
  addUnlessEmpty("ProductLink:", control.ProductLink);
  addUnlessEmpty("DatasheetLink:", control.DatasheetLink);
  addUnlessEmpty("PackbLink:", control.PackbLink);
  addUnlessEmpty(toUtf8(moduleWide().TextModulInfo[7]) + ":", control.StatusString);
  return rows;
}

/// How many columns of a terminal a text takes: East Asian signs take two.
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
  const std::vector<Row> rows = rowsOf(control);
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
