#pragma once

#include <QClipboard>
#include <QDir>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include "DialogDriver.h"
#include "FakeCatalogue.h"
#include "FakePlatform.h"
#include "Inside.h"
#include "PanelWindow.h"
#include "base/Text.h"

namespace tessara::testing {

/// The window of the host around a control on a platform of fakes, in English, with one adapter and
/// a healthy module. Settings and files are in a temporary folder.
class HostBench : public ::testing::Test {
 protected:
  HostBench() {
    qputenv("XDG_CONFIG_HOME", folder.filePath("config").toUtf8());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.filePath("config"));
    settings.emplace(true);
    settings->keepFolder(folder.path());
    platform.xmlTree = [] { return std::make_unique<FakeCatalogue>(); };
    platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}};
    platform.device.registers = {
        {4, {0x1234}},  {3, {0x1100}}, {5, {1, 2, 0, 0}}, {16, DeviceWords(16, 0x4142)},
        {0, {0x0080}},  {60, {0}},     {61, {0x0080}},    {62, {0x0011}},
        {63, {0x0080}}, {64, {0}}};
    window.emplace(platform, log, *settings);
    control().put_AppPathString(fromUtf8(TESSARA_LANGUAGE_FOLDER));
    control().put_Language(2);
    control().put_Baudrate(19200);
    control().UserControl_Show();
    window->controlIsUp();
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&*window));
  }

  ModulInfoFLII& control() { return window->control(); }
  Panel& panel() { return inside(control()).panel; }
  /// The message of the host in the status bar.
  QString told() { return window->statusBar()->currentMessage(); }
  [[nodiscard]] QString path(const QString& name) const { return folder.filePath(name); }

  /// Gives that window the keyboard focus. Qt itself considers a window active as soon as its
  /// parent is.
  static void activate(QWidget& target) {
    target.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &target; }));
  }

  /// Presses the keys in that window, in its focused widget.
  static void pressIn(QWidget& target, Qt::Key key,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    activate(target);
    QTest::keyClick(target.focusWidget() == nullptr ? &target : target.focusWidget(), key,
                    modifiers);
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    pressIn(*window, key, modifiers);
  }

  QTemporaryDir folder;
  FakePlatform platform;
  EventLog log;
  std::optional<HostSettings> settings;
  std::optional<PanelWindow> window;
  DialogDriver dialogs;
};

}  // namespace tessara::testing
