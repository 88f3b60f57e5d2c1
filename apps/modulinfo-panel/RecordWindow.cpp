#include "RecordWindow.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QFileInfo>
#include <QFontInfo>
#include <QScreen>
#include <algorithm>

#include "qt/Look.h"
#include "record/RecordRows.h"

namespace tessara {
namespace {

constexpr auto geometryName = "Record";
constexpr int bannerMargin = 8;
constexpr int pageMargin = 14;
/// How wide the window is in heights of a line, as long as nobody has changed it.
constexpr int usualLines = 44;
/// How much of the screen's height it takes at most.
constexpr double screenShare = 0.85;

}  // namespace

RecordWindow::RecordWindow(RecordSheet sheet, const QString& path, HostSettings& settings,
                           QWidget* parent)
    : QWidget(parent, Qt::Window),
      sheet_(std::move(sheet)),
      settings_(settings),
      buttons_(new ButtonRow(*this)),
      desk_(*this, settings, [this](const QString& text) { buttons_->say(text); }) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName("record");
  const HostTexts& words = sheet_.words;
  desk_.setWords(words);
  const QString file = QFileInfo(path).fileName();
  setWindowTitle(words(Word::RecordWindow1, {file}) + " - " + words(Word::Title));

  banner_.setObjectName("banner");
  banner_.setTextFormat(Qt::PlainText);
  banner_.setWordWrap(true);
  banner_.setMargin(bannerMargin);
  banner_.setAutoFillBackground(true);
  banner_.setText(words(Word::RecordNotLive2, {recordTime(sheet_.record, words), file}));
  banner_.setToolTip(path);
  page_.setOpenExternalLinks(true);
  page_.setFrameShape(QFrame::NoFrame);
  page_.setAccessibleName(words(Word::RecordTitle));

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
  const HostTexts& words = sheet_.words;
  buttons_->add(words(Word::PrintRecord), QKeySequence::Print, [this] { desk_.print(sheet_); });
  buttons_->add(words(Word::SavePdf), {}, [this] { desk_.savePdf(sheet_); });
  buttons_->add(words(Word::Copy), {}, [this] { desk_.copy(sheet_); });
  buttons_->add(words(Word::Close), QKeySequence(Qt::Key_Escape), [this] { close(); });
}

void RecordWindow::takePlace() {
  const int width = usualLines * fontMetrics().lineSpacing();
  page_.document()->setTextWidth(width);
  const int whole = banner_.heightForWidth(width) + buttons_->sizeHint().height() +
                    qRound(page_.document()->size().height()) + 1;
  resize(width, std::min(whole, qRound(screen()->availableGeometry().height() * screenShare)));
  restoreGeometry(settings_.geometry(geometryName));
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
  settings_.keepGeometry(geometryName, saveGeometry());
  QWidget::closeEvent(event);
}

}  // namespace tessara
