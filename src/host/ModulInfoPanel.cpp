#include "host/ModulInfoPanel.h"

#include <QVBoxLayout>
#include <cstdint>
#include <optional>
#include <utility>

#include "localisation/Maker.h"
#include "localisation/Settings.h"
#include "platform/linux/EmbeddedSimulator.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/qt/PanelView.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtForms.h"
#include "platform/qt/QtMessageHelper.h"
#include "platform/qt/QtPictureLoader.h"
#include "platform/qt/QtText.h"

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

}  // namespace

/// What the panel is put together from, in the order in which one needs the other.
class ModulInfoPanel::Parts final : public HostEvents {
 public:
  Parts(ModulInfoPanel& panel, const std::filesystem::path& moduleFile) : panel_(panel) {
    if (!moduleFile.empty()) {
      simulator_.emplace(moduleFile);
    }
    platform_.emplace(loop_, messages_, optionsFor(simulator_ ? &*simulator_ : nullptr));
    messages_->setParent(&panel);
    loop_.tickFailed = [&panel](const std::exception& error) {
      Q_EMIT panel.scanFailed(QString::fromUtf8(error.what()));
    };
    control_.emplace(*platform_, *this);
    control_->UserControl_Initialize();
    control_->put_AppPathString(platform_->appPath());
    control_->put_Baudrate(usualBaudrate);
    control_->put_VersionString(std::u16string(maker.version));
    control_->setFormObserver(&forms_);
    view_.emplace(control_->panel);
  }

  [[nodiscard]] ModulInfoFLII& control() { return *control_; }
  [[nodiscard]] PanelView& view() { return *view_; }

  [[nodiscard]] std::int16_t setting(std::u16string_view name) const {
    return ReadNumber(live(moduleWide().RegistryHelper, "RegistryHelper"), name,
                      control_->decimalSeparator());
  }
  [[nodiscard]] std::int16_t lastPort() const {
    return simulator_ ? simulator_->comPort() : setting(u"COM Port");
  }

 private:
  void ModulActive(std::int32_t& lStatus) override { Q_EMIT panel_.ModulActive(lStatus); }
  void StatusChange() override { Q_EMIT panel_.StatusChange(toQt(control_->StatusString)); }
  void SetConfiguration() override { Q_EMIT panel_.SetConfiguration(); }
  void SaveConfiguration() override { Q_EMIT panel_.SaveConfiguration(); }
  void LoadConfiguration() override { Q_EMIT panel_.LoadConfiguration(); }
  void PrintConfiguration() override { Q_EMIT panel_.PrintConfiguration(); }
  void DataTransfer() override { Q_EMIT panel_.DataTransfer(); }
  void NFCReader(bool& bNFCReader) override { Q_EMIT panel_.NFCReader(bNFCReader); }

  ModulInfoPanel& panel_;
  QtEventLoop loop_;
  std::shared_ptr<QtMessageHelper> messages_ = std::make_shared<QtMessageHelper>();
  QtForms forms_{panel_};
  std::optional<EmbeddedSimulator> simulator_;
  std::optional<LinuxPlatform> platform_;
  std::optional<ModulInfoFLII> control_;
  std::optional<PanelView> view_;
};

ModulInfoPanel::ModulInfoPanel(QWidget* parent, const std::filesystem::path& moduleFile)
    : QWidget(parent), parts_(std::make_unique<Parts>(*this, moduleFile)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(&parts_->view());
}

ModulInfoPanel::~ModulInfoPanel() = default;

void ModulInfoPanel::bringUp() {
  control().put_Language(parts_->setting(u"Language"));
  control().put_ComPort(parts_->lastPort());
  control().UserControl_Show();
}

void ModulInfoPanel::read() {
  try {
    control().AutomaticConnection();
  } catch (const std::exception& error) {
    parts_->view().showError(QString::fromUtf8(error.what()));
  }
}

void ModulInfoPanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  control().hWnd = effectiveWinId();
}

ModulInfoFLII& ModulInfoPanel::control() {
  return parts_->control();
}

}  // namespace tessara
