#pragma once

#include <QLabel>

#include "qt/WidgetView.h"

namespace tessara {

/// How a text of the panel is set.
enum class LabelRole {
  /// The name of a field: quiet, and made smaller down to 80 % before anything is cut off.
  Caption,
  /// What a module says.
  Value,
  /// A value that is read first.
  StrongValue,
  /// A text in as many lines as it needs.
  Text,
  /// The name of the product.
  Title,
  /// The heading of what stands below it, with a line to the end of its place.
  Section,
  /// A value whose whole text may be long: the keyboard reaches it, and shows its tool tip.
  LongValue,
};

/// A text in one line, or a caption in as many as its place is high enough for. What does not fit
/// ends in three points, and the tool tip tells the whole. Values can be copied.
class LabelView : public QLabel, public WidgetView {
 public:
  LabelView(Widget& subject, LabelRole role, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

  /// The text as it is drawn, shortened where it does not fit.
  [[nodiscard]] QString shownText() const;
  [[nodiscard]] bool isCut() const { return shownText() != text(); }

  /// The width in logical pixels that the text needs in one line; 0 for one in several.
  [[nodiscard]] double neededWidth() const;
  /// The height that a text in several lines needs at that width; 0 for one in a single line.
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
  /// Where the text stands: all of the place, or what a focus frame around it leaves.
  [[nodiscard]] QRect room() const;

  LabelRole role_;
  Look look_;
};

}  // namespace tessara
