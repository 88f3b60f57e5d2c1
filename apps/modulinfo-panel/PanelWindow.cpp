#include "PanelWindow.h"

#include <QAction>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QStatusBar>

#include "localisation/Maker.h"
#include "platform/qt/Picture.h"
#include "platform/qt/QtText.h"

namespace tessara {
namespace {

constexpr auto title = "Module information";
constexpr int tellMilliseconds = 8000;
constexpr int statusMargin = 6;

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

PanelWindow::PanelWindow(Platform& platform) : control_(platform, *this), view_(control_.panel) {
  setWindowTitle(title);
  setWindowIcon(applicationIcon());
  setCentralWidget(&view_);
  control_.setFormObserver(&forms_);
  control_.put_VersionString(Variant(std::u16string(maker.version)));
  status_.setTextFormat(Qt::PlainText);
  statusBar()->addWidget(&status_, 1);
  statusBar()->addPermanentWidget(&path_);
  statusBar()->addPermanentWidget(&light_);
  statusBar()->setSizeGripEnabled(false);
  statusBar()->setContentsMargins(statusMargin, 0, statusMargin, statusMargin / 2);

  auto* quit = new QAction(this);
  quit->setShortcut(QKeySequence::Quit);
  connect(quit, &QAction::triggered, this, &QWidget::close);
  addAction(quit);
}

void PanelWindow::read() {
  try {
    control_.AutomaticConnection();
  } catch (const std::exception& error) {
    showError(error);
  }
}

void PanelWindow::showError(const std::exception& error) const {
  view_.showError(QString::fromUtf8(error.what()));
}

void PanelWindow::tell(const QString& text) {
  statusBar()->showMessage(text, tellMilliseconds);
}

void PanelWindow::ModulActive(std::int32_t& lStatus) {
  const auto activity = static_cast<Activity>(lStatus);
  light_.setActivity(activity);
  if (activity == Activity::NoInterface) {
    tell("No port and no reader was found. Plug one in and start the program again.");
  }
  const QString module = readable(control_.panel.LabelDeviceName.caption());
  setWindowTitle(module.isEmpty() ? QString(title) : module + " - " + title);
}

void PanelWindow::StatusChange() {
  // Every pass of the scan comes by here, mostly with the text that stands already.
  const QString text = toQt(control_.StatusString);
  if (text != status_.text()) {
    statusBar()->clearMessage();
    status_.setText(text);
  }
}

void PanelWindow::SetConfiguration() {
  tell("The module fits. This program has no parameters to write to it.");
}

void PanelWindow::SaveConfiguration() {
  tell("This program has no parameters to save.");
}

void PanelWindow::LoadConfiguration() {
  tell("This program loads no parameters.");
}

void PanelWindow::PrintConfiguration() {
  tell("This program has no parameters to print.");
}

void PanelWindow::DataTransfer() {
  // Raised for a host that reads DataTrafic, which this one does not.
}

void PanelWindow::NFCReader(bool& bNFCReader) {
  path_.setText(bNFCReader ? "NFC" : "");
}

}  // namespace tessara
