#include "EventWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHideEvent>
#include <QScrollBar>
#include <algorithm>

#include "record/RecordFile.h"

namespace tessara {
namespace {

constexpr auto geometryName = "Events";
constexpr auto textSuffix = "txt";
constexpr auto suggestedFile = "modulinfo-events.txt";
constexpr int margin = 8;
constexpr QSize usualLines{66, 22};

/// The widest texts that the narrow columns usually hold.
constexpr auto widestTime = "00:00:00.000";
constexpr auto widestOrigin = "ModbusCommObject";
constexpr auto widestCall = "ReadInputRegisters(192, 65535, 99, 12)";
constexpr auto widestDuration = "00000.0";

}  // namespace

EventWindow::EventWindow(EventLog& log, const HostTexts& words, HostSettings& settings,
                         QWidget* parent)
    : QWidget(parent, Qt::Window),
      log_(log),
      settings_(settings),
      buttons_(new ButtonRow(*this)),
      desk_(*this, settings, [this](const QString& text) { buttons_->say(text); }),
      words_(words) {
  setObjectName("events");
  table_.setSelectionBehavior(QAbstractItemView::SelectRows);
  table_.setSelectionMode(QAbstractItemView::ContiguousSelection);
  table_.setShowGrid(false);
  table_.setAlternatingRowColors(true);
  table_.setWordWrap(false);
  table_.setTabKeyNavigation(false);
  table_.setFrameShape(QFrame::NoFrame);
  table_.verticalHeader()->hide();
  table_.verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + margin / 2);
  table_.horizontalHeader()->setHighlightSections(false);
  table_.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  connect(&log, &QAbstractItemModel::rowsInserted, this, &EventWindow::followNewest);
  follows_.setSingleShot(true);
  follows_.callOnTimeout(&table_, &QTableView::scrollToBottom);

  desk_.setWords(words);
  log.setWords(words);
  setWindowTitle(words(Word::EventsTitle) + " - " + words(Word::Title));
  table_.setAccessibleName(words(Word::EventsTitle));
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(&table_, 1);
  rows->addLayout(buttons_);
  buttons_->add(words(Word::EventsSave), QKeySequence::Save, [this] { save(); });
  buttons_->add(words(Word::Copy), QKeySequence::Copy, [this] { copySelected(); });
  buttons_->add(words(Word::EventsClear), {}, [this] { log_.clear(); });
  buttons_->add(words(Word::Close), QKeySequence(Qt::Key_Escape), [this] { close(); });

  resize(usualLines * fontMetrics().lineSpacing());
  restoreGeometry(settings.geometry(geometryName));
}

void EventWindow::toggle() {
  if (isVisible()) {
    close();
    return;
  }
  show();
  raise();
  activateWindow();
}

void EventWindow::showEvent(QShowEvent* event) {
  if (table_.model() == nullptr) {
    table_.setModel(&log_);
    const auto width = [this](const char* text) {
      return table_.fontMetrics().horizontalAdvance(text) + 2 * margin;
    };
    table_.setColumnWidth(EventLog::Time, width(widestTime));
    table_.setColumnWidth(EventLog::Origin, width(widestOrigin));
    table_.setColumnWidth(EventLog::What, width(widestCall));
    table_.setColumnWidth(EventLog::Milliseconds, width(widestDuration));
    table_.horizontalHeader()->setSectionResizeMode(EventLog::Result, QHeaderView::Stretch);
    table_.scrollToBottom();
    table_.setFocus();
  }
  QWidget::showEvent(event);
}

void EventWindow::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) {
    table_.setModel(nullptr);
    settings_.keepGeometry(geometryName, saveGeometry());
  }
}

void EventWindow::followNewest() {
  // Whoever has scrolled back to look at something is left there.
  const QScrollBar* bar = table_.verticalScrollBar();
  if (isVisible() && bar->value() == bar->maximum()) {
    follows_.start();
  }
}

void EventWindow::save() {
  const QString path = desk_.askForFile(plainTitle(words_(Word::EventsSave)), suggestedFile,
                                        words_(Word::TextFiles), textSuffix);
  if (!path.isEmpty()) {
    desk_.guard([&] {
      replaceFile(path, log_.text().toUtf8());
      buttons_->say(words_(Word::SavedAs1, {path}));
    });
  }
}

void EventWindow::copySelected() {
  const QModelIndexList rows = table_.selectionModel()->selectedRows();
  const auto [first, last] = std::minmax_element(rows.begin(), rows.end());
  QGuiApplication::clipboard()->setText(rows.isEmpty() ? log_.text()
                                                       : log_.text(first->row(), last->row()));
  buttons_->say(words_(Word::CopiedText));
}

}  // namespace tessara
