#pragma once

#include "CallLog.h"
#include "widgets/Widget.h"

namespace tessara::testing {

/// Writes every change of a widget into the log: "CmdDeviceInfo.enabled=false",
/// "LblChnState.caption=NFC", "LblVendorID.refresh".
class PanelLog : public WidgetObserver {
 public:
  explicit PanelLog(CallLog& log) : log_(log) {}
  void widgetChanged(const Widget& widget, WidgetAspect aspect) override;
  void widgetRefreshed(const Widget& widget) override;

 private:
  CallLog& log_;
};

}  // namespace tessara::testing
