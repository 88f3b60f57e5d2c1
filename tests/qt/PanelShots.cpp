// Draws the panel in its states and the dialogs into a folder: panel_shots FOLDER. The scale factor
// comes from QT_SCALE_FACTOR and becomes part of the file names.

#include <QApplication>
#include <QDir>
#include <QTextStream>
#include <functional>

#include "FormShots.h"
#include "SamplePanel.h"
#include "qt/PanelView.h"

using namespace tessara;
using namespace tessara::testing;

namespace {

struct Shot {
  QString name;
  std::function<void(Panel&)> fill;
};

const QList<Shot> shots{
    {"filled",
     [](Panel& panel) {
       bringUp(panel, german);
       fillHealthy(panel);
     }},
    {"empty", [](Panel& panel) { bringUp(panel, german); }},
    {"inputs",
     [](Panel& panel) {
       bringUp(panel, german);
       showInputs(panel);
       fillHealthy(panel);
     }},
    {"longest",
     [](Panel& panel) {
       bringUp(panel, german);
       showInputs(panel);
       fillLongest(panel);
     }},
    {"russian",
     [](Panel& panel) {
       bringUp(panel, russian);
       showInputs(panel);
       fillLongest(panel);
     }},
    {"chinese",
     [](Panel& panel) {
       bringUp(panel, chinese);
       showInputs(panel);
       fillHealthy(panel);
     }},
    {"disabled",
     [](Panel& panel) {
       bringUp(panel, german);
       disableButtons(panel);
     }},
    {"logos",
     [](Panel& panel) {
       bringUp(panel, german);
       fillHealthy(panel);
       panel.PictureLogo.setPicture(u"" TESSARA_SAMPLE_LOGO);
       panel.PictureDevice.setPicture(u"" TESSARA_SAMPLE_DEVICE);
     }},
};

bool take(const Shot& shot, const QString& theme, const QDir& folder, double enlarged) {
  Panel panel;
  shot.fill(panel);
  PanelView view(panel);
  view.resize(view.sizeHint() * enlarged);
  view.show();
  QApplication::processEvents();
  const int percent = qRound(100 * view.devicePixelRatio() * enlarged);
  const QString file = folder.filePath(QString("%1-%2-%3.png").arg(shot.name, theme).arg(percent));
  return view.grab().save(file);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2 || !QDir().mkpath(argv[1])) {
    QTextStream(stderr) << "Usage: panel_shots FOLDER\n";
    return 2;
  }
  const QDir folder(argv[1]);
  const QPalette light = QApplication::palette();
  bool saved = true;
  for (const QString theme : {"light", "dark"}) {
    QApplication::setPalette(theme == "dark" ? darkPalette() : light);
    for (const Shot& shot : shots) {
      saved = take(shot, theme, folder, 1) && saved;
    }
    saved = takeForms(theme, folder) && saved;
  }
  return saved ? 0 : 1;
}
