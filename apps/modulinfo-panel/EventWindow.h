#pragma once

#include <QTableView>
#include <QTimer>
#include <QWidget>

#include "ButtonRow.h"
#include "HostSettings.h"
#include "RecordDesk.h"
#include "events/EventLog.h"

namespace tessara {

/// Shows the events as they come, the newest last, and saves them as text. Hidden, it looks at
/// nothing. Escape closes it.
class EventWindow : public QWidget {
 public:
  /// Log and settings have to outlive the window.
  EventWindow(EventLog& log, const HostTexts& words, HostSettings& settings,
              QWidget* parent = nullptr);

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
  /// The table knows its new rows only after all who hear of them have heard.
  QTimer follows_;
  HostTexts words_;
};

}  // namespace tessara
