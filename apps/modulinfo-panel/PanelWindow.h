#pragma once

#include <QLabel>
#include <QMainWindow>
#include <exception>

#include "ActivityLight.h"
#include "control/ModulInfoFLII.h"
#include "platform/qt/PanelView.h"
#include "platform/qt/QtForms.h"

namespace tessara {

/// A window around the panel of one control, and that control's host: the status line tells what
/// the control reports. This host keeps no parameter set, and says so when one is asked for.
class PanelWindow : public QMainWindow, private HostEvents {
 public:
  explicit PanelWindow(Platform& platform);

  [[nodiscard]] ModulInfoFLII& control() { return control_; }

  /// Reads the module as the read button does; what goes wrong beyond that is shown.
  void read();

  /// Shows what went wrong in a box.
  void showError(const std::exception& error) const;

  /// Shows a text in the status line for some seconds.
  void tell(const QString& text);

 private:
  void ModulActive(std::int32_t& lStatus) override;
  void StatusChange() override;
  void SetConfiguration() override;
  void SaveConfiguration() override;
  void LoadConfiguration() override;
  void PrintConfiguration() override;
  void DataTransfer() override;
  void NFCReader(bool& bNFCReader) override;

  QtForms forms_{*this};
  ModulInfoFLII control_;
  PanelView view_;
  QLabel status_;
  QLabel path_;
  ActivityLight light_;
};

}  // namespace tessara
