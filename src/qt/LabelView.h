#pragma once

#include <QLabel>

#include "qt/WidgetView.h"

namespace tessara {

/// The style of a text on the panel.
enum class LabelRole {
  /// The name of a field: subdued, scaled down to 80 % before it is elided.
  Caption,
  /// A value of the module.
  Value,
  /// A prominent value.
  StrongValue,
  /// A text on as many lines as it needs.
  Text,
  /// The name of the product.
  Title,
  /// A heading, followed by a line up to the right edge.
  Section,
  /// A value that may be long: it accepts the keyboard focus, which shows its tool tip.
  LongValue,
};

/// A text on one line, or a caption on as many lines as its height allows. A text that does not fit
/// is elided, and the tool tip shows all of it. Values can be copied.
class LabelView : public QLabel, public WidgetView {
 public:
  LabelView(Widget& subject, LabelRole role, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

  /// The text as it is drawn, elided to fit.
  [[nodiscard]] QString shownText() const;
  [[nodiscard]] bool isCut() const { return shownText() != text(); }

  /// The width in logical pixels that the text needs on one line; 0 for a multi-line text.
  [[nodiscard]] double neededWidth() const;
  /// The height that a multi-line text needs at that width; 0 for a single line.
  [[nodiscard]] double neededHeight(double width) const;

 protected:
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {}; }

 private:
  [[nodiscard]] QString wholeText() const;
  [[nodiscard]] QFont fittingFont() const;
  [[nodiscard]] bool isValue() const;
  [[nodiscard]] bool wraps() const;
  /// The area of the text: the whole widget, or what a focus frame leaves of it.
  [[nodiscard]] QRect room() const;

  LabelRole role_;
  Look look_;
};

}  // namespace tessara
