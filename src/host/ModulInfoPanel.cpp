#include "host/ModulInfoPanel.h"

#include <QVBoxLayout>
#include <cstdint>
#include <optional>
#include <utility>

#include "base/Variant.h"
#include "dialogs/Maker.h"
#include "linux/EmbeddedSimulator.h"
#include "linux/LinuxPlatform.h"
#include "localisation/Settings.h"
#include "qt/PanelView.h"
#include "qt/QtEventLoop.h"
#include "qt/QtForms.h"
#include "qt/QtMessageHelper.h"
#include "qt/QtPictureLoader.h"
#include "qt/QtText.h"

namespace tessara {
namespace {

constexpr std::int32_t usualBaudrate = 19200;

LinuxPlatformOptions optionsFor(const EmbeddedSimulator* simulator) {
  LinuxPlatformOptions options;
  options.pictures = std::make_shared<QtPictureLoader>();
  if (simulator != nullptr) {
    options.embedded = simulator;
    options.usbReaders = &simulator->usbReaders();
    options.looksForDevices = false;
    options.keepsSettings = false;
  }
  return options;
}

/// The system around the control as the library puts it together.
class OwnSystem {
 public:
  OwnSystem(ModulInfoPanel& panel, const std::filesystem::path& moduleFile) {
    if (!moduleFile.empty()) {
      simulator_.emplace(moduleFile);
    }
    platform_.emplace(loop_, messages_, optionsFor(simulator_ ? &*simulator_ : nullptr));
    messages_->setParent(&panel);
    loop_.tickFailed = [&panel](const std::exception& error) {
      Q_EMIT panel.scanFailed(QString::fromUtf8(error.what()));
    };
  }

  [[nodiscard]] LinuxPlatform& platform() { return *platform_; }
  /// The port of the simulated module; nothing without one.
  [[nodiscard]] std::optional<std::int16_t> simulatedPort() const {
    return simulator_ ? std::optional(simulator_->comPort()) : std::nullopt;
  }

 private:
  QtEventLoop loop_;
  std::shared_ptr<QtMessageHelper> messages_ = std::make_shared<QtMessageHelper>();
  std::optional<EmbeddedSimulator> simulator_;
  std::optional<LinuxPlatform> platform_;
};

}  // namespace

/// The parts of the panel, in the order in which each needs those before it.
class ModulInfoPanel::Parts final : public HostEvents {
 public:
  Parts(ModulInfoPanel& panel, std::unique_ptr<OwnSystem> system, Platform& platform)
      : panel_(panel),
        forms_(panel),
        system_(std::move(system)),
        platform_(platform),
        control_(platform, *this) {
    control_.UserControl_Initialize();
    control_.put_AppPathString(platform.appPath());
    control_.put_Baudrate(usualBaudrate);
    control_.put_VersionString(std::u16string(maker.version));
    control_.setFormObserver(&forms_);
    view_.emplace(control_.panel());
  }

  [[nodiscard]] ModulInfoFLII& control() { return control_; }
  [[nodiscard]] PanelView& view() { return *view_; }

  [[nodiscard]] std::int16_t setting(std::u16string_view name) const {
    return ReadNumber(*platform_.createRegistryHelper(), name, control_.decimalSeparator());
  }
  [[nodiscard]] std::int16_t lastPort() const {
    const auto simulated = system_ ? system_->simulatedPort() : std::nullopt;
    return simulated ? *simulated : setting(u"COM Port");
  }

 private:
  void ModulActive(std::int32_t& lStatus) override { Q_EMIT panel_.ModulActive(lStatus); }
  void StatusChange() override {
    Q_EMIT panel_.StatusChange(toQt(toText(control_.get_StatusString(), {})));
  }
  void SetConfiguration() override { Q_EMIT panel_.SetConfiguration(); }
  void SaveConfiguration() override { Q_EMIT panel_.SaveConfiguration(); }
  void LoadConfiguration() override { Q_EMIT panel_.LoadConfiguration(); }
  void PrintConfiguration() override { Q_EMIT panel_.PrintConfiguration(); }
  void DataTransfer() override { Q_EMIT panel_.DataTransfer(); }
  void NFCReader(bool& bNFCReader) override { Q_EMIT panel_.NFCReader(bNFCReader); }

  ModulInfoPanel& panel_;
  QtForms forms_;
  /// Null if the host has put its system together itself.
  std::unique_ptr<OwnSystem> system_;
  Platform& platform_;
  ModulInfoFLII control_;
  std::optional<PanelView> view_;
};

ModulInfoPanel::ModulInfoPanel(QWidget* parent, const std::filesystem::path& moduleFile)
    : QWidget(parent) {
  auto system = std::make_unique<OwnSystem>(*this, moduleFile);
  Platform& platform = system->platform();
  parts_ = std::make_unique<Parts>(*this, std::move(system), platform);
  showView();
}

ModulInfoPanel::ModulInfoPanel(Platform& platform, QWidget* parent)
    : QWidget(parent), parts_(std::make_unique<Parts>(*this, nullptr, platform)) {
  showView();
}

ModulInfoPanel::~ModulInfoPanel() = default;

void ModulInfoPanel::showView() {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(&parts_->view());
}

void ModulInfoPanel::bringUp() {
  control().put_Language(parts_->setting(u"Language"));
  control().put_ComPort(parts_->lastPort());
  control().UserControl_Show();
}

void ModulInfoPanel::read() {
  try {
    control().AutomaticConnection();
  } catch (const std::exception& error) {
    showError(QString::fromUtf8(error.what()));
  }
}

void ModulInfoPanel::showError(const QString& text) const {
  parts_->view().showError(text);
}

QWidget* ModulInfoPanel::viewOf(const Widget& widget) const {
  return parts_->view().viewOf(widget);
}

void ModulInfoPanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  control().put_hWnd(effectiveWinId());
}

ModulInfoFLII& ModulInfoPanel::control() {
  return parts_->control();
}

const ModulInfoFLII& ModulInfoPanel::control() const {
  return parts_->control();
}

}  // namespace tessara
