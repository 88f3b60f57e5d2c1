#pragma once

#include <QCoreApplication>
#include <QTableView>
#include <QTimer>
#include <QWidget>

#include "ButtonRow.h"
#include "HostSettings.h"
#include "RecordDesk.h"
#include "events/EventLog.h"

namespace tessara {

/// Shows the events as they happen, the newest last, and saves them as text. While hidden it is
/// detached from the log. Escape closes it.
class EventWindow : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(EventWindow)

 public:
  /// Log and settings must outlive the window.
  EventWindow(EventLog& log, HostSettings& settings, QWidget* parent = nullptr);

  /// Shows the window in front of the others, or hides it.
  void toggle();

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void followNewest();
  void save();
  void copySelected();

  EventLog& log_;
  HostSettings& settings_;
  QTableView table_;
  ButtonRow* buttons_;
  RecordDesk desk_;
  /// The table knows its new rows only after every receiver of the signal has run.
  QTimer follows_;
};

}  // namespace tessara
