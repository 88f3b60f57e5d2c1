#include "RecordWindow.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QFileInfo>
#include <QFontInfo>
#include <QScreen>
#include <algorithm>

#include "qt/Look.h"
#include "record/RecordRows.h"
#include "record/RecordWords.h"
#include "words/PanelLanguage.h"

namespace tessara {
namespace {

constexpr auto recordWindowName = "Record";
constexpr int bannerMargin = 8;
constexpr int pageMargin = 14;
/// The initial width of the window in line heights.
constexpr int initialRecordLines = 44;
/// The largest share of the screen's height that the window takes at first.
constexpr double maxScreenShare = 0.85;

}  // namespace

RecordWindow::RecordWindow(RecordSheet sheet, const QString& path, HostSettings& settings,
                           QWidget* parent)
    : QWidget(parent, Qt::Window),
      sheet_(std::move(sheet)),
      settings_(settings),
      buttons_(new ButtonRow(*this)),
      desk_(*this, settings, [this](const QString& text) { buttons_->showMessage(text); }) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName("record");
  const QString file = QFileInfo(path).fileName();
  //: Title of a window; "record" is a noun, %1: its file
  setWindowTitle(tr("Record: %1").arg(file) + " - " + programTitle());

  banner_.setObjectName("banner");
  banner_.setTextFormat(Qt::PlainText);
  banner_.setWordWrap(true);
  banner_.setMargin(bannerMargin);
  banner_.setAutoFillBackground(true);
  //: %1: the date and time of the record, %2: its file
  banner_.setText(tr("Record of %1 from the file %2: not the current state of the module.")
                      .arg(recordTime(sheet_.record), file));
  banner_.setToolTip(path);
  page_.setOpenExternalLinks(true);
  page_.setFrameShape(QFrame::NoFrame);
  page_.setAccessibleName(RecordWords::tr("Module record"));

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(&banner_);
  rows->addWidget(&page_, 1);
  makeButtons();
  rows->addLayout(buttons_);

  layOutPage();
  takePlace();
  page_.setFocus();
}

void RecordWindow::makeButtons() {
  buttons_->add(tr("&Print…"), QKeySequence::Print, [this] { desk_.print(sheet_); });
  buttons_->add(tr("Save as P&DF…"), {}, [this] { desk_.savePdf(sheet_); });
  buttons_->add(tr("C&opy"), {}, [this] { desk_.copy(sheet_); });
  buttons_->add(tr("&Close"), QKeySequence(Qt::Key_Escape), [this] { close(); });
}

void RecordWindow::takePlace() {
  const int width = initialRecordLines * fontMetrics().lineSpacing();
  page_.document()->setTextWidth(width);
  const int whole = banner_.heightForWidth(width) + buttons_->sizeHint().height() +
                    qRound(page_.document()->size().height()) + 1;
  resize(width, std::min(whole, qRound(screen()->availableGeometry().height() * maxScreenShare)));
  restoreGeometry(settings_.geometry(recordWindowName));
}

RecordInk RecordWindow::ink() const {
  const Look look = Look::of(*this, 1);
  RecordInk ink;
  ink.text = look.text;
  ink.caption = look.caption;
  ink.ground = look.tint(look.card, 0.12);
  ink.link = look.accent;
  ink.pixels = QFontInfo(font()).pixelSize();
  return ink;
}

void RecordWindow::layOutPage() {
  const Look look = Look::of(*this, 1);
  QPalette palette = banner_.palette();
  palette.setColor(QPalette::Window,
                   look.dark ? QColor(0x5c, 0x45, 0x0a) : QColor(0xff, 0xec, 0xb8));
  palette.setColor(QPalette::WindowText, look.dark ? Qt::white : Qt::black);
  banner_.setPalette(palette);

  auto document = recordDocument(sheet_, ink(), devicePixelRatio());
  document->setDocumentMargin(pageMargin);
  document->setParent(&page_);
  page_.setDocument(document.release());
}

void RecordWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
    layOutPage();
  }
}

void RecordWindow::closeEvent(QCloseEvent* event) {
  settings_.keepGeometry(recordWindowName, saveGeometry());
  QWidget::closeEvent(event);
}

}  // namespace tessara
