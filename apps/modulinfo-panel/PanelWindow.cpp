#include "PanelWindow.h"

#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QStatusBar>
#include <chrono>
#include <filesystem>
#include <utility>

#include "DeferredIcon.h"
#include "PanelMenu.h"
#include "RecordWindow.h"
#include "Translators.h"
#include "base/Text.h"
#include "qt/Picture.h"
#include "qt/QtText.h"
#include "record/TakeRecord.h"
#include "words/PanelLanguage.h"

namespace tessara {
namespace {

constexpr auto panelWindowName = "Window";
constexpr int messageMilliseconds = 8000;
constexpr int statusMargin = 6;
constexpr std::chrono::milliseconds freePause{50};

/// The values that a host assigns to DeviceActive before and after its own work.
constexpr std::int32_t hostBusy = 1;
constexpr std::int32_t hostIdle = 0;
/// The value of DataValid after a module was read.
constexpr std::int32_t dataOfModule = 1;

QIcon applicationIcon() {
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    Picture::application().draw(painter, pixmap.rect(), Qt::AlignHCenter);
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

QString noModuleRead() {
  return PanelWindow::tr("No module has been read: nothing to save, print or copy.");
}

}  // namespace

PanelWindow::PanelWindow(Platform& platform, EventLog& log, HostSettings& settings)
    : platform_(platform),
      log_(log),
      settings_(settings),
      panel_(platform),
      desk_(*this, settings, [this](const QString& text) { tell(text); }) {
  nameWindow();
  setWindowIcon(deferredIcon(applicationIcon));
  setCentralWidget(&panel_);
  status_.setTextFormat(Qt::PlainText);
  statusBar()->addWidget(&status_, 1);
  statusBar()->addPermanentWidget(&path_);
  statusBar()->addPermanentWidget(&light_);
  statusBar()->setSizeGripEnabled(false);
  statusBar()->setContentsMargins(statusMargin, 0, statusMargin, statusMargin / 2);
  waitsForFree_.setInterval(freePause);
  waitsForFree_.callOnTimeout([this] { runIfFree(); });
  listen();
}

void PanelWindow::listen() {
  connect(&panel_, &ModulInfoPanel::ModulActive, this, &PanelWindow::activityChanged);
  connect(&panel_, &ModulInfoPanel::StatusChange, this, &PanelWindow::statusChanged);
  connect(&panel_, &ModulInfoPanel::SetConfiguration, this, &PanelWindow::storeParameters);
  connect(&panel_, &ModulInfoPanel::SaveConfiguration, this, &PanelWindow::saveRecord);
  connect(&panel_, &ModulInfoPanel::LoadConfiguration, this, &PanelWindow::loadRecord);
  connect(&panel_, &ModulInfoPanel::PrintConfiguration, this, &PanelWindow::printRecord);
  connect(&panel_, &ModulInfoPanel::NFCReader, this, &PanelWindow::pathChosen);
  // For hosts that read DataTrafic; this one does not.
  connect(&panel_, &ModulInfoPanel::DataTransfer, this, [this] { logCallback("DataTransfer"); });
}

void PanelWindow::controlIsUp() {
  installTranslator(control().texts());
  light_.retranslate();
  nameWindow();
  showLogo();
  makeMenus(*menuBar(), panel_,
            {.savePdf =
                 [this] {
                   whenFree([this] {
                     workOnRecord([this](const RecordSheet& sheet) { desk_.savePdf(sheet); });
                   });
                 },
             .copyText = [this] { copy(); },
             .showEvents = [this] { showEvents(); },
             .quit = [this] { close(); }});
}

void PanelWindow::showLogo() {
  // An empty name: the logo is the one named in the settings, if any.
  try {
    control().put_ManufactureLogoString(std::u16string());
  } catch (const std::exception& error) {
    tell(QString::fromUtf8(error.what()));
  }
}

void PanelWindow::takePlace() {
  restoreGeometry(settings_.geometry(panelWindowName));
}

void PanelWindow::read() {
  panel_.read();
}

std::optional<ModuleRecord> PanelWindow::record() const {
  return takeRecord(panel_.control(), QDateTime::currentDateTime());
}

RecordSheet PanelWindow::sheetOf(ModuleRecord record) const {
  RecordSheet sheet{std::move(record), &ModulInfoFLII::texts(), {}};
  sheet.logo = Picture::of(panel_.control().panel().widget(u"PictureLogo").state().picture, {});
  return sheet;
}

void PanelWindow::showError(const std::exception& error) const {
  panel_.showError(QString::fromUtf8(error.what()));
}

void PanelWindow::openingEnded(const std::string& file, std::int32_t result) {
  std::filesystem::path help(file);
  if (result != Shell::noAssociation || help.extension() != ".chm") {
    return;
  }
  const std::string page = help.replace_extension() / "index.html";
  const std::int32_t shown =
      platform_.shell().ShellExecuteA(0, u"Open", fromUtf8(page), {}, {}, Shell::showNormal);
  tell(shown > Shell::lastFailure
           ? tr("No help viewer is installed: the help is shown in the browser.")
           : tr("No program for showing the help is installed."));
}

void PanelWindow::tell(const QString& text) {
  statusBar()->showMessage(text, messageMilliseconds);
}

void PanelWindow::closeEvent(QCloseEvent* event) {
  settings_.keepGeometry(panelWindowName, saveGeometry());
  QMainWindow::closeEvent(event);
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  // A focused field or label with something to copy handles the keys itself.
  if (event->matches(QKeySequence::Copy)) {
    copy();
    return;
  }
  QMainWindow::keyPressEvent(event);
}

void PanelWindow::whenFree(std::function<void()> task) {
  waiting_ = std::move(task);
  runIfFree();
}

void PanelWindow::runIfFree() {
  if (activity_ == Activity::Busy || control().get_DeviceConnected() != 0) {
    waitsForFree_.start();
    return;
  }
  waitsForFree_.stop();
  const auto task = std::exchange(waiting_, nullptr);
  if (!task) {
    return;
  }
  try {
    task();
  } catch (const std::exception& error) {
    showError(error);
  }
}

void PanelWindow::work(const std::function<void()>& task) {
  control().put_DeviceActive(hostBusy);
  try {
    task();
  } catch (const std::exception& error) {
    showError(error);
  }
  control().put_DeviceActive(hostIdle);
}

void PanelWindow::workOnRecord(const std::function<void(const RecordSheet&)>& task) {
  const auto taken = record();
  if (!taken) {
    tell(noModuleRead());
    return;
  }
  work([&] { task(sheetOf(*taken)); });
}

void PanelWindow::copy() {
  if (const auto taken = record()) {
    desk_.copy(sheetOf(*taken));
  } else {
    tell(noModuleRead());
  }
}

void PanelWindow::open() {
  if (auto opened = desk_.open()) {
    auto* window =
        new RecordWindow(sheetOf(std::move(opened->record)), opened->path, settings_, this);
    window->show();
  }
}

void PanelWindow::showEvents() {
  if (events_ == nullptr) {
    events_ = new EventWindow(log_, settings_, this);
  }
  events_->toggle();
}

void PanelWindow::nameWindow() {
  const QString module = readable(control().panel().widget(u"LabelDeviceName").caption());
  const QString title = programTitle();
  setWindowTitle(module.isEmpty() ? title : module + " - " + title);
}

void PanelWindow::moduleWasRead() {
  // The module accepts parameters; unlocking the button is up to the host.
  control().UnLockCmdStore();
  // The rate that the user selected; the second attempt of the control may use another one.
  bool isNumber = false;
  const int baudrate = toQt(control().panel().widget(u"ComboBaudrate").text()).toInt(&isNumber);
  const CommunicationObject* object = control().get_CommunicationObject();
  if (isNumber && object != nullptr && object->name() == u"ModbusCommObject") {
    settings_.keepBaudrate(baudrate);
  }
}

void PanelWindow::tellFailure() {
  const CommunicationObject* object = control().get_CommunicationObject();
  const QString connecting =
      object == nullptr ? QString() : QString::fromStdString(object->connectFailure());
  const QString cause = connecting.isEmpty() ? log_.failureCause() : connecting;
  if (!cause.isEmpty()) {
    tell(cause);
  }
}

void PanelWindow::logCallback(const QString& name, const QString& text) {
  log_.add(HostEvent{name, text});
}

void PanelWindow::activityChanged(int status) {
  logCallback(QString("ModulActive(%1)").arg(status));
  activity_ = static_cast<Activity>(status);
  light_.setActivity(activity_);
  nameWindow();
  switch (activity_) {
    case Activity::AccessOver:
      if (control().get_DataValid() == dataOfModule) {
        moduleWasRead();
      }
      break;
    case Activity::ConnectionFailed:
      tellFailure();
      break;
    case Activity::NoInterface:
      tell(tr("No port or reader found. Connect one and restart the program."));
      break;
    default:
      break;
  }
}

void PanelWindow::statusChanged(const QString& text) {
  // Called with each pass of the scan, mostly with the same text.
  logCallback("StatusChange", '"' + text + '"');
  if (text != status_.text()) {
    statusBar()->clearMessage();
    status_.setText(text);
  }
}

void PanelWindow::storeParameters() {
  logCallback("SetConfiguration");
  work([this] {
    QMessageBox::information(this, programTitle(),
                             //: The module read is of the kind that the host expects
                             tr("The module matches. This program has no parameters to transfer."));
  });
}

void PanelWindow::saveRecord() {
  logCallback("SaveConfiguration");
  whenFree(
      [this] { workOnRecord([this](const RecordSheet& sheet) { desk_.save(sheet.record); }); });
}

void PanelWindow::loadRecord() {
  logCallback("LoadConfiguration");
  whenFree([this] { work([this] { open(); }); });
}

void PanelWindow::printRecord() {
  logCallback("PrintConfiguration");
  whenFree([this] { workOnRecord([this](const RecordSheet& sheet) { desk_.print(sheet); }); });
}

void PanelWindow::pathChosen(bool isReader) {
  logCallback(QString("NFCReader(%1)").arg(isReader ? "true" : "false"));
  path_.setText(isReader ? "NFC" : "");
}

}  // namespace tessara
