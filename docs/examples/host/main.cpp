// A configuration program with the device-information panel in its window. It prints the panel's
// callbacks on standard output and reads a module as soon as it is up: the one at the port that was
// used last, or with an argument the simulated one of that file.
#include <QApplication>
#include <QMainWindow>
#include <QStatusBar>
#include <QTimer>
#include <iostream>

#include "base/Text.h"
#include "host/ModulInfoPanel.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  try {
    auto* panel = new tessara::ModulInfoPanel(&window, argc > 1 ? argv[1] : "");
    tessara::ModulInfoFLII& control = panel->control();
    window.setCentralWidget(panel);

    QObject::connect(panel, &tessara::ModulInfoPanel::StatusChange, window.statusBar(),
                     [&](const QString& text) { window.statusBar()->showMessage(text); });
    QObject::connect(panel, &tessara::ModulInfoPanel::ModulActive, [&](int status) {
      std::cout << "ModulActive " << status << std::endl;
      if (status == 0 && control.get_DataValid() == 1) {
        std::cout << tessara::toUtf8(tessara::toText(control.get_DeviceName(), u".")) << ", "
                  << tessara::toUtf8(control.panel().widget(u"LblModulState").caption())
                  << std::endl;
      }
    });
    QObject::connect(panel, &tessara::ModulInfoPanel::SetConfiguration,
                     [] { std::cout << "the module can be given its parameters" << std::endl; });

    panel->bringUp();
    window.show();
    QTimer::singleShot(0, panel, &tessara::ModulInfoPanel::read);
    return QApplication::exec();
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return 1;
  }
}
