#pragma once

#include <QCoreApplication>
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

/// A window around the panel, and the host of its control: the status line shows what the control
/// reports; Save, Open and Print handle the record of the module. This host keeps no parameter set,
/// and says so when parameters are to be transferred.
class PanelWindow : public QMainWindow {
  Q_DECLARE_TR_FUNCTIONS(PanelWindow)

 public:
  /// All of them must outlive the window. The window adds the callbacks to the log; the calls to
  /// the module are added by the owner of the platform.
  PanelWindow(Platform& platform, EventLog& log, HostSettings& settings);

  [[nodiscard]] ModulInfoFLII& control() { return panel_.control(); }

  /// Installs the language of the control and makes the menus. To be called once the control has
  /// started, or has failed to.
  void controlIsUp();

  /// Restores the position that the window had last.
  void takePlace();

  /// Reads the module as the read button does; an exception is shown in a message box.
  void read();

  /// The record of the module as the panel shows it; nothing if no module has been read.
  [[nodiscard]] std::optional<ModuleRecord> record() const;
  /// The record with the texts and the logo of this window, to be shown or printed.
  [[nodiscard]] RecordSheet sheetOf(ModuleRecord record) const;

  /// Shows the error in a message box.
  void showError(const std::exception& error) const;

  /// To be called with the result of opening a file or address. If no program is installed for help
  /// files, the browser shows the pages beside the file.
  void openingEnded(const std::string& file, std::int32_t result);

  /// Shows a text in the status line for some seconds.
  void tell(const QString& text);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// Connects the callbacks of the control to the functions that follow.
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
  /// Adds the callback to the log.
  void logCallback(const QString& name, const QString& text = {});
  void moduleWasRead();
  void tellFailure();
  /// Runs the task as soon as no access to the module is in progress, since a dialog would keep the
  /// connection open. A newer task replaces one that still waits.
  void whenFree(std::function<void()> task);
  void runIfFree();
  /// Runs the task while the control knows that the host is busy: its buttons are disabled and it
  /// does not access the module.
  void work(const std::function<void()>& task);
  /// The same with the record of the module; a message if no module has been read.
  void workOnRecord(const std::function<void(const RecordSheet&)>& task);
  void copy();
  void open();
  void showEvents();

  Platform& platform_;
  EventLog& log_;
  HostSettings& settings_;
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
