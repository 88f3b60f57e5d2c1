#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <cstdint>
#include <optional>

namespace tessara {

/// What this program remembers for its user besides the settings of the control: the geometry of
/// its windows, the rate and the folder of the records. It is stored in Orvane/modulinfo-panel.ini
/// in the user's configuration folder. An invalid value counts as missing.
class HostSettings {
 public:
  /// With `keeps` false, nothing is read or stored.
  explicit HostSettings(bool keeps);

  /// The geometry of the window of that name, as Qt writes it; empty if none is known.
  [[nodiscard]] QByteArray geometry(const QString& window) const;
  void keepGeometry(const QString& window, const QByteArray& geometry);

  /// Bit/s.
  [[nodiscard]] std::optional<std::int32_t> baudrate() const;
  void keepBaudrate(std::int32_t baudrate);

  /// The folder in which a file was chosen last; at first the user's documents.
  [[nodiscard]] QString folder() const;
  void keepFolder(const QString& folder);

 private:
  void keep(const QString& name, const QVariant& value);

  std::optional<QSettings> store_;
};

}  // namespace tessara
