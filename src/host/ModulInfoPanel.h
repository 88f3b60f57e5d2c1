#pragma once

#include <QString>
#include <QWidget>
#include <filesystem>
#include <memory>

#include "control/ModulInfoFLII.h"

namespace tessara {

/// The device-information panel as one widget for the window of a host: the control, the system
/// around it and its view. Needs a QApplication and lives on its thread.
///
/// A program calls bringUp(), shows the widget and leaves the rest to the user, or reads the module
/// with read(). Properties, methods and the model of the widgets are reached through control().
///
/// The callbacks of the control are signals with the same names. They are emitted inside the
/// operation that raises them, so a slot may run in the middle of a read; to delete the panel from
/// a slot, use deleteLater().
class ModulInfoPanel : public QWidget {
  Q_OBJECT

 public:
  /// A panel on the ports of this computer; or, with the path of a module file, on a simulated
  /// module inside this program, which leaves the user's settings unchanged. An invalid file is a
  /// std::runtime_error that says what is wrong with it.
  explicit ModulInfoPanel(QWidget* parent = nullptr, const std::filesystem::path& moduleFile = {});
  /// A panel on a system that the host puts together itself: with its own ports, settings or
  /// drivers, or with a trace of the calls to the module. It must outlive the panel.
  explicit ModulInfoPanel(Platform& platform, QWidget* parent = nullptr);
  ModulInfoPanel(const ModulInfoPanel&) = delete;
  ModulInfoPanel& operator=(const ModulInfoPanel&) = delete;
  ~ModulInfoPanel() override;

  /// Brings the panel up with the language and the port that the user chose last. Contacts no
  /// module. A host that chooses them itself sets `Language`, `ComPort` and `Baudrate` at control()
  /// and calls control().UserControl_Show() instead. Invalid settings and damaged language files
  /// are a RunTimeError.
  void bringUp();

  /// Reads the module as the read button does. Errors that the control does not report on its panel
  /// are shown in a message box.
  void read();

  /// Shows an error in a message box.
  void showError(const QString& text) const;

  /// The control: initialised, with `AppPathString` set to the folder of the installed data, 19200
  /// bit/s and, until the host sets its own version, that of the product.
  [[nodiscard]] ModulInfoFLII& control();
  [[nodiscard]] const ModulInfoFLII& control() const;

  /// The Qt widget that draws this widget of control().panel(); null for timers and image lists.
  [[nodiscard]] QWidget* viewOf(const Widget& widget) const;

 Q_SIGNALS:
  /// The control's activity has changed; the values are those of Activity.
  void ModulActive(int status);
  /// StatusString was written or cleared; this is what it holds.
  void StatusChange(const QString& text);
  /// The user wants the parameter set transferred to the module, and the module matches.
  void SetConfiguration();
  /// The user wants the parameter set saved.
  void SaveConfiguration();
  /// The user wants a parameter set loaded.
  void LoadConfiguration();
  /// The user wants the parameter set printed.
  void PrintConfiguration();
  /// The host has read DataTrafic.
  void DataTransfer();
  /// The path to the module was selected; true for an NFC reader.
  void NFCReader(bool isReader);

  /// A pass of the background scan has raised an error. The scan continues.
  void scanFailed(const QString& message);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  class Parts;
  void showView();

  std::unique_ptr<Parts> parts_;
};

}  // namespace tessara
