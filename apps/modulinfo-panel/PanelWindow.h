#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <exception>
#include <functional>
#include <optional>
#include <string>

#include "ActivityLight.h"
#include "EventWindow.h"
#include "HostSettings.h"
#include "RecordDesk.h"
#include "events/EventLog.h"
#include "host/ModulInfoPanel.h"

namespace tessara {

/// A window around the panel, and the host of its control: the status line tells what
/// the control reports; Save, Open and Print handle the record of the module. This host keeps no
/// parameter set, and says so when the module is to be given one.
class PanelWindow : public QMainWindow {
 public:
  /// All of them have to outlive the window. The log gets the callbacks; the calls to the module
  /// are told to it by whoever makes the platform.
  PanelWindow(Platform& platform, EventLog& log, HostSettings& settings);

  [[nodiscard]] ModulInfoFLII& control() { return panel_.control(); }

  /// Takes over the language of the control and makes the menus. To be called when the control is
  /// up, or has failed to come up.
  void controlIsUp();

  /// Puts the window where it stood last.
  void takePlace();

  /// Reads the module as the read button does; what goes wrong beyond that is shown.
  void read();

  /// The record of the module as the panel shows it; nothing if there is none.
  [[nodiscard]] std::optional<ModuleRecord> record() const;
  /// What a record of this window is printed and shown with.
  [[nodiscard]] RecordSheet sheetOf(ModuleRecord record) const;

  /// Shows what went wrong in a box.
  void showError(const std::exception& error) const;

  /// To be told what became of a file or an address that was to be opened. Help that no program
  /// shows is shown by the browser, from the pages that lie beside it.
  void openingEnded(const std::string& file, std::int32_t result);

  /// Shows a text in the status line for some seconds.
  void tell(const QString& text);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// Has the callbacks of the control come to the functions that follow.
  void listen();
  void activityChanged(int status);
  void statusChanged(const QString& text);
  void storeParameters();
  void saveRecord();
  void loadRecord();
  void printRecord();
  void pathChosen(bool isReader);

  void nameWindow();
  void showLogo();
  /// Writes the callback into the log.
  void logCallback(const QString& name, const QString& text = {});
  void moduleWasRead();
  void tellFailure();
  /// Runs the task as soon as no access to the module is under way: a dialog in the middle of one
  /// would hold the connection open. A task that waits already is dropped for a newer one.
  void whenFree(std::function<void()> task);
  void runIfFree();
  /// Runs the task with the control told that the host is at work: its buttons are off and it
  /// leaves the module alone until the task is over.
  void work(const std::function<void()>& task);
  /// The same with the record of the module, if there is one; else tells that there is none.
  void workOnRecord(const std::function<void(const RecordSheet&)>& task);
  void copy();
  void open();
  void showEvents();

  Platform& platform_;
  EventLog& log_;
  HostSettings& settings_;
  HostTexts words_;
  Activity activity_ = Activity::AccessOver;
  ModulInfoPanel panel_;
  QLabel status_;
  QLabel path_;
  ActivityLight light_;
  RecordDesk desk_;
  EventWindow* events_ = nullptr;
  std::function<void()> waiting_;
  QTimer waitsForFree_;
};

}  // namespace tessara
