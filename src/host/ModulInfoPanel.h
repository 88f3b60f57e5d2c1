#pragma once

#include <QString>
#include <QWidget>
#include <filesystem>
#include <memory>

#include "control/ModulInfoFLII.h"

namespace tessara {

/// The device-information panel as one widget for the window of a host: the control, the system
/// around it and the view of it, put together. Needs a QApplication and lives on its thread.
///
/// A program calls bringUp(), shows the widget and leaves the rest to the person in front of it, or
/// reads the module with read(). Properties, methods and the widgets' model are reached through
/// control().
///
/// The callbacks of the control are signals under their own names. They come inside the operation
/// that raises them, so a slot may be running while the control is in the middle of a read: from
/// there, delete the panel with deleteLater().
class ModulInfoPanel : public QWidget {
  Q_OBJECT

 public:
  /// A panel on the ports of this computer; or, with the path of a file that describes one, on a
  /// simulated module inside this program. The settings of the user then stay as they are. A file
  /// that describes no module is a std::runtime_error that says what is wrong with it.
  explicit ModulInfoPanel(QWidget* parent = nullptr, const std::filesystem::path& moduleFile = {});
  /// A panel on a system that the host puts together itself: with ports, settings or drivers of its
  /// own, or with somebody who listens to the calls to the module. It has to outlive the panel.
  explicit ModulInfoPanel(Platform& platform, QWidget* parent = nullptr);
  ModulInfoPanel(const ModulInfoPanel&) = delete;
  ModulInfoPanel& operator=(const ModulInfoPanel&) = delete;
  ~ModulInfoPanel() override;

  /// Brings the panel up in the language and at the port that the user chose last. Contacts no
  /// module. A host that decides about these itself sets `Language`, `ComPort` and `Baudrate` at
  /// control() and calls control().UserControl_Show() instead. Settings that cannot be used and
  /// damaged language files are a RunTimeError.
  void bringUp();

  /// Reads the module as the read button does. What goes wrong beyond what the control tells on its
  /// panel is shown.
  void read();

  /// Shows what went wrong in a message box.
  void showError(const QString& text) const;

  /// The control: initialised, with `AppPathString` at the folder of the installed data, 19200
  /// bit/s and, until the host says which version it is itself, that of the product.
  [[nodiscard]] ModulInfoFLII& control();
  [[nodiscard]] const ModulInfoFLII& control() const;

  /// The Qt widget that draws that one of control().panel(); null for timers and image lists.
  [[nodiscard]] QWidget* viewOf(const Widget& widget) const;

 Q_SIGNALS:
  /// The control's activity has changed; the values are those of Activity.
  void ModulActive(int status);
  /// StatusString was written or cleared; this is what it holds.
  void StatusChange(const QString& text);
  /// The user wants the parameter set in the module, and the module fits.
  void SetConfiguration();
  /// The user wants the parameter set on disk.
  void SaveConfiguration();
  /// The user wants a parameter set from disk.
  void LoadConfiguration();
  /// The user wants the parameter set on paper.
  void PrintConfiguration();
  /// The host has read DataTrafic.
  void DataTransfer();
  /// The path to the module was set; true for an NFC reader.
  void NFCReader(bool isReader);

  /// A pass of the background scan has ended with an error, for which nobody else is there to
  /// catch it. The scan goes on.
  void scanFailed(const QString& message);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  class Parts;
  void showView();

  std::unique_ptr<Parts> parts_;
};

}  // namespace tessara
