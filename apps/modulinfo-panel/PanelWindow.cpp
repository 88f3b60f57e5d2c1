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
#include "localisation/Maker.h"
#include "platform/Text.h"
#include "platform/qt/Picture.h"
#include "platform/qt/QtText.h"
#include "record/TakeRecord.h"

namespace tessara {
namespace {

constexpr auto geometryName = "Window";
constexpr int tellMilliseconds = 8000;
constexpr int statusMargin = 6;
constexpr std::chrono::milliseconds freePause{50};

/// What a host declares with DeviceActive before and after its own work.
constexpr std::int32_t hostWorks = 1;
constexpr std::int32_t hostIsDone = 0;
/// What DataValid says of a module that was read.
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

}  // namespace

PanelWindow::PanelWindow(Platform& platform, EventLog& log, HostSettings& settings)
    : platform_(platform),
      log_(log),
      settings_(settings),
      control_(platform, *this),
      view_(control_.panel),
      desk_(*this, settings, [this](const QString& text) { tell(text); }) {
  nameWindow();
  setWindowIcon(deferredIcon(applicationIcon));
  setCentralWidget(&view_);
  control_.setFormObserver(&forms_);
  control_.put_VersionString(Variant(std::u16string(maker.version)));
  status_.setTextFormat(Qt::PlainText);
  statusBar()->addWidget(&status_, 1);
  statusBar()->addPermanentWidget(&path_);
  statusBar()->addPermanentWidget(&light_);
  statusBar()->setSizeGripEnabled(false);
  statusBar()->setContentsMargins(statusMargin, 0, statusMargin, statusMargin / 2);
  waitsForFree_.setInterval(freePause);
  waitsForFree_.callOnTimeout([this] { runIfFree(); });
}

void PanelWindow::controlIsUp() {
  words_ = HostTexts::beside(moduleWide());
  light_.setWords(words_);
  desk_.setWords(words_);
  nameWindow();
  showLogo();
  makeMenus(*menuBar(), view_, control_.panel, words_,
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
  // No file of a fixed name: the logo is the one that the settings name, if they do.
  try {
    control_.put_ManufactureLogoString(std::u16string());
  } catch (const std::exception& error) {
    tell(QString::fromUtf8(error.what()));
  }
}

void PanelWindow::takePlace() {
  restoreGeometry(settings_.geometry(geometryName));
}

void PanelWindow::read() {
  try {
    control_.AutomaticConnection();
  } catch (const std::exception& error) {
    showError(error);
  }
}

std::optional<ModuleRecord> PanelWindow::record() const {
  return takeRecord(control_, platform_, QDateTime::currentDateTime());
}

RecordSheet PanelWindow::sheetOf(ModuleRecord record) const {
  RecordSheet sheet{std::move(record), &moduleWide(), words_, {}};
  sheet.logo = Picture::of(control_.panel.PictureLogo.state().picture, {});
  return sheet;
}

void PanelWindow::showError(const std::exception& error) const {
  view_.showError(QString::fromUtf8(error.what()));
}

void PanelWindow::openingEnded(const std::string& file, std::int32_t result) {
  std::filesystem::path help(file);
  if (result != Shell::noAssociation || help.extension() != ".chm") {
    return;
  }
  const std::string page = help.replace_extension() / "index.html";
  const std::int32_t shown =
      platform_.shell().ShellExecuteA(0, u"Open", fromUtf8(page), {}, {}, Shell::showNormal);
  tell(words_(shown > Shell::lastFailure ? Word::HelpInBrowser : Word::NoHelpProgram));
}

void PanelWindow::tell(const QString& text) {
  statusBar()->showMessage(text, tellMilliseconds);
}

void PanelWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  control_.hWnd = winId();
}

void PanelWindow::closeEvent(QCloseEvent* event) {
  settings_.keepGeometry(geometryName, saveGeometry());
  QMainWindow::closeEvent(event);
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  // A field or a label that has something to copy has taken the keys already.
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
  if (activity_ == Activity::Busy || control_.get_DeviceConnected() != 0) {
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
  control_.put_DeviceActive(hostWorks);
  try {
    task();
  } catch (const std::exception& error) {
    showError(error);
  }
  control_.put_DeviceActive(hostIsDone);
}

void PanelWindow::workOnRecord(const std::function<void(const RecordSheet&)>& task) {
  const auto taken = record();
  if (!taken) {
    tell(words_(Word::NoModule));
    return;
  }
  work([&] { task(sheetOf(*taken)); });
}

void PanelWindow::copy() {
  if (const auto taken = record()) {
    desk_.copy(sheetOf(*taken));
  } else {
    tell(words_(Word::NoModule));
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
    events_ = new EventWindow(log_, words_, settings_, this);
  }
  events_->toggle();
}

void PanelWindow::nameWindow() {
  const QString module = readable(control_.panel.LabelDeviceName.caption());
  const QString title = words_(Word::Title);
  setWindowTitle(module.isEmpty() ? title : module + " - " + title);
}

void PanelWindow::moduleWasRead() {
  const Panel& panel = control_.panel;
  // The module may be given parameters; the control leaves that to its host to say.
  control_.UnLockCmdStore();
  // The rate that the person chose: a second attempt of the control goes past the list.
  bool isNumber = false;
  const int baudrate = toQt(panel.ComboBaudrate.text()).toInt(&isNumber);
  if (isNumber && !control_.bNFCReader && !control_.HartMode) {
    settings_.keepBaudrate(baudrate);
  }
}

void PanelWindow::tellFailure() {
  const CommunicationObject* object = control_.get_CommunicationObject();
  const QString connecting =
      object == nullptr ? QString() : QString::fromStdString(object->connectFailure());
  const QString cause = connecting.isEmpty() ? log_.failureCause() : connecting;
  if (!cause.isEmpty()) {
    tell(cause);
  }
}

void PanelWindow::ModulActive(std::int32_t& lStatus) {
  log_.add(HostEvent{QString("ModulActive(%1)").arg(lStatus), {}});
  activity_ = static_cast<Activity>(lStatus);
  light_.setActivity(activity_);
  nameWindow();
  switch (activity_) {
    case Activity::AccessOver:
      if (control_.get_DataValid() == dataOfModule) {
        moduleWasRead();
      }
      break;
    case Activity::ConnectionFailed:
      tellFailure();
      break;
    case Activity::NoInterface:
      tell(words_(Word::NoInterface));
      break;
    default:
      break;
  }
}

void PanelWindow::StatusChange() {
  // Every pass of the scan comes by here, mostly with the text that stands already.
  const QString text = toQt(control_.StatusString);
  log_.add(HostEvent{"StatusChange", '"' + text + '"'});
  if (text != status_.text()) {
    statusBar()->clearMessage();
    status_.setText(text);
  }
}

void PanelWindow::SetConfiguration() {
  log_.add(HostEvent{"SetConfiguration", {}});
  work([this] {
    QMessageBox::information(this, words_(Word::Title), words_(Word::NothingToStore));
  });
}

void PanelWindow::SaveConfiguration() {
  log_.add(HostEvent{"SaveConfiguration", {}});
  whenFree(
      [this] { workOnRecord([this](const RecordSheet& sheet) { desk_.save(sheet.record); }); });
}

void PanelWindow::LoadConfiguration() {
  log_.add(HostEvent{"LoadConfiguration", {}});
  whenFree([this] { work([this] { open(); }); });
}

void PanelWindow::PrintConfiguration() {
  log_.add(HostEvent{"PrintConfiguration", {}});
  whenFree([this] { workOnRecord([this](const RecordSheet& sheet) { desk_.print(sheet); }); });
}

void PanelWindow::DataTransfer() {
  // Raised for a host that reads DataTrafic, which this one does not.
  log_.add(HostEvent{"DataTransfer", {}});
}

void PanelWindow::NFCReader(bool& bNFCReader) {
  log_.add(HostEvent{QString("NFCReader(%1)").arg(bNFCReader ? "true" : "false"), {}});
  path_.setText(bNFCReader ? "NFC" : "");
}

}  // namespace tessara
