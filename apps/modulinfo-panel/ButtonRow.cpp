#include "ButtonRow.h"

#include <QPushButton>
#include <QShortcut>

namespace tessara {
namespace {

constexpr int margin = 8;

}  // namespace

ButtonRow::ButtonRow(QWidget& window) : window_(window), said_(new QLabel(&window)) {
  setContentsMargins(margin, margin, margin, margin);
  setSpacing(margin);
  said_->setTextFormat(Qt::PlainText);
  said_->setObjectName("said");
  // A long path is no reason to widen the window.
  said_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  addWidget(said_, 1);
}

void ButtonRow::add(const QString& text, const QKeySequence& keys,
                    const std::function<void()>& task) {
  auto* button = new QPushButton(text, &window_);
  button->setAutoDefault(true);
  // Styles leave long texts little room at their sides.
  const int taken = button->fontMetrics().size(Qt::TextShowMnemonic, text).width();
  button->setMinimumWidth(taken + 4 * margin);
  QObject::connect(button, &QPushButton::clicked, &window_, task);
  addWidget(button);
  if (!keys.isEmpty()) {
    auto* shortcut = new QShortcut(keys, &window_);
    QObject::connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
  }
}

}  // namespace tessara
