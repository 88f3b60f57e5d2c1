#include "EventWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHideEvent>
#include <QScrollBar>
#include <algorithm>

#include "record/RecordFile.h"
#include "words/PanelLanguage.h"

namespace tessara {
namespace {

constexpr auto eventWindowName = "Events";
constexpr auto textSuffix = "txt";
constexpr auto suggestedFile = "modulinfo-events.txt";
constexpr int cellMargin = 8;
/// The initial size of the window in line heights.
constexpr QSize initialEventLines{66, 22};

/// The widest texts expected in the narrow columns.
constexpr auto widestTime = "00:00:00.000";
constexpr auto widestOrigin = "ModbusCommObject";
constexpr auto widestCall = "ReadInputRegisters(192, 65535, 99, 12)";
constexpr auto widestDuration = "00000.0";

}  // namespace

EventWindow::EventWindow(EventLog& log, HostSettings& settings, QWidget* parent)
    : QWidget(parent, Qt::Window),
      log_(log),
      settings_(settings),
      buttons_(new ButtonRow(*this)),
      desk_(*this, settings, [this](const QString& text) { buttons_->showMessage(text); }) {
  setObjectName("events");
  table_.setSelectionBehavior(QAbstractItemView::SelectRows);
  table_.setSelectionMode(QAbstractItemView::ContiguousSelection);
  table_.setShowGrid(false);
  table_.setAlternatingRowColors(true);
  table_.setWordWrap(false);
  table_.setTabKeyNavigation(false);
  table_.setFrameShape(QFrame::NoFrame);
  table_.verticalHeader()->hide();
  table_.verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + cellMargin / 2);
  table_.horizontalHeader()->setHighlightSections(false);
  table_.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  connect(&log, &QAbstractItemModel::rowsInserted, this, &EventWindow::followNewest);
  follows_.setSingleShot(true);
  follows_.callOnTimeout(&table_, &QTableView::scrollToBottom);

  setWindowTitle(tr("Events") + " - " + programTitle());
  table_.setAccessibleName(tr("Events"));
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(&table_, 1);
  rows->addLayout(buttons_);
  buttons_->add(tr("&Save…"), QKeySequence::Save, [this] { save(); });
  buttons_->add(tr("C&opy"), QKeySequence::Copy, [this] { copySelected(); });
  buttons_->add(
      //: Removes all events
      tr("C&lear"), {}, [this] { log_.clear(); });
  buttons_->add(tr("&Close"), QKeySequence(Qt::Key_Escape), [this] { close(); });

  resize(initialEventLines * fontMetrics().lineSpacing());
  restoreGeometry(settings.geometry(eventWindowName));
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
      return table_.fontMetrics().horizontalAdvance(text) + 2 * cellMargin;
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
    settings_.keepGeometry(eventWindowName, saveGeometry());
  }
}

void EventWindow::followNewest() {
  // A user who has scrolled back stays there.
  const QScrollBar* bar = table_.verticalScrollBar();
  if (isVisible() && bar->value() == bar->maximum()) {
    follows_.start();
  }
}

void EventWindow::save() {
  const QString path = desk_.askForFile(  //: Title of the file dialog
      tr("Save"), suggestedFile, tr("Text files (*.txt)"), textSuffix);
  if (!path.isEmpty()) {
    desk_.guard([&] {
      replaceFile(path, log_.text().toUtf8());
      desk_.tellSaved(path);
    });
  }
}

void EventWindow::copySelected() {
  const QModelIndexList rows = table_.selectionModel()->selectedRows();
  const auto [first, last] = std::minmax_element(rows.begin(), rows.end());
  QGuiApplication::clipboard()->setText(rows.isEmpty() ? log_.text()
                                                       : log_.text(first->row(), last->row()));
  desk_.tellCopied();
}

}  // namespace tessara
