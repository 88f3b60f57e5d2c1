// Draws the windows, menus and report of the host in one language into a folder: host_shots FOLDER
// MODULE LANGUAGE. The scale factor comes from QT_SCALE_FACTOR and becomes part of the file names.

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPrintPreviewDialog>
#include <QTextStream>
#include <QTimer>
#include <iostream>

#include "EventWindow.h"
#include "HostStyle.h"
#include "PanelWindow.h"
#include "RecordWindow.h"
#include "SamplePanel.h"
#include "common/HeadlessMessageHelper.h"
#include "common/ModuleReading.h"
#include "linux/EmbeddedSimulator.h"
#include "linux/LinuxPlatform.h"
#include "qt/QtEventLoop.h"
#include "qt/QtPictureLoader.h"

using namespace tessara;

namespace {

class Shots {
 public:
  Shots(const QDir& folder, std::string module) : folder_(folder), module_(std::move(module)) {}

  void take(int language, const QString& theme) {
    name_ = QString("%1-" + theme + "-%2").arg(language);
    const EmbeddedSimulator simulator(module_);
    QtEventLoop loop;
    EventLog events;
    HostSettings settings(false);
    LinuxPlatformOptions options;
    options.embedded = &simulator;
    options.looksForDevices = false;
    options.keepsSettings = false;
    options.pictures = std::make_shared<QtPictureLoader>();
    options.callSink = [&events](const DeviceCall& call) { events.add(call); };
    LinuxPlatform platform(loop, std::make_shared<HeadlessMessageHelper>(std::cerr),
                           std::move(options));
    PanelWindow window(platform, events, settings);
    ModuleRequest request;
    request.comPort = simulator.comPort();
    request.language = language;
    bringUp(window.control(), platform, request);
    window.controlIsUp();
    window.show();
    save("window-empty", window);
    window.read();
    save("window", window);
    saveMenus(*window.menuBar());

    const RecordSheet sheet = window.sheetOf(window.record().value());
    RecordWindow record(sheet, "TESSARA-TM-151-4711.json", settings);
    record.setAttribute(Qt::WA_DeleteOnClose, false);
    record.show();
    save("record", record);
    EventWindow log(events, settings);
    log.show();
    save("events", log);
    preview(sheet, settings, window);
    writeReport(sheet, folder_.filePath("report-" + name_.arg("page") + ".pdf"));
  }

  [[nodiscard]] bool allSaved() const { return saved_; }

 private:
  void save(const QString& what, QWidget& window) {
    QApplication::processEvents();
    const int percent = qRound(100 * window.devicePixelRatio());
    saved_ =
        window.grab().save(folder_.filePath(what + '-' + name_.arg(percent) + ".png")) && saved_;
  }

  void saveMenus(const QMenuBar& bar) {
    for (QAction* action : bar.actions()) {
      QMenu& menu = *action->menu();
      menu.ensurePolished();
      menu.resize(menu.sizeHint());
      save("menu" + QString::number(bar.actions().indexOf(action) + 1), menu);
    }
  }

  void preview(const RecordSheet& sheet, HostSettings& settings, QWidget& window) {
    RecordDesk desk(window, settings, [](const QString&) {});
    QTimer::singleShot(std::chrono::milliseconds(200), [this] {
      if (QWidget* dialog = QApplication::activeModalWidget()) {
        save("preview", *dialog);
        dialog->close();
      }
    });
    desk.print(sheet);
  }

  QDir folder_;
  std::string module_;
  QString name_;
  bool saved_ = true;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const int language = argc == 4 ? QByteArray(argv[3]).toInt() : 0;
  if (language == 0 || !QDir().mkpath(argv[1])) {
    QTextStream(stderr) << "Usage: host_shots FOLDER MODULE.json LANGUAGE\n";
    return 2;
  }
  QApplication::setStyle(new HostStyle);
  Shots shots(QDir(argv[1]), argv[2]);
  const QPalette light = QApplication::palette();
  for (const QString theme : {"light", "dark"}) {
    QApplication::setPalette(theme == "dark" ? testing::darkPalette() : light);
    shots.take(language, theme);
  }
  return shots.allSaved() ? 0 : 1;
}
