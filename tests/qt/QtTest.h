#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "SamplePanel.h"
#include "base/Text.h"
#include "qt/PanelView.h"
#include "qt/QtText.h"

namespace tessara::testing {

/// A panel in German on the screen, with a count of the handlers run.
class PanelOnScreen : public ::testing::Test {
 protected:
  PanelOnScreen() {
    bringUp(panel, german);
    view.showError = [this](const QString& text) { errors.push_back(text.toStdString()); };
    view.show();
    view.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
  }

  /// The Qt widget of this widget of the model.
  template <class Kind = QWidget>
  Kind& shown(const Widget& widget) {
    auto* found = dynamic_cast<Kind*>(view.viewOf(widget));
    EXPECT_NE(found, nullptr);
    return *found;
  }

  /// Counts the runs of the widget's handler.
  int& countClicks(Widget& widget) {
    widget.setClickHandler([this] { ++clicks; });
    return clicks;
  }

  /// The accessible name of the widget.
  QString spoken(const Widget& widget, QAccessible::Text what = QAccessible::Name) {
    return QAccessible::queryAccessibleInterface(&shown(widget))->text(what);
  }

  Panel panel;
  PanelView view{panel};
  std::vector<std::string> errors;
  int clicks = 0;
};

}  // namespace tessara::testing
