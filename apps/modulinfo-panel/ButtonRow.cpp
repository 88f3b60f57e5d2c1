#include "ButtonRow.h"

#include <QPushButton>
#include <QShortcut>

namespace tessara {
namespace {

constexpr int buttonMargin = 8;

}  // namespace

ButtonRow::ButtonRow(QWidget& window) : window_(window), message_(new QLabel(&window)) {
  setContentsMargins(buttonMargin, buttonMargin, buttonMargin, buttonMargin);
  setSpacing(buttonMargin);
  message_->setTextFormat(Qt::PlainText);
  message_->setObjectName("message");
  // A long path must not widen the window.
  message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  addWidget(message_, 1);
}

void ButtonRow::add(const QString& text, const QKeySequence& keys,
                    const std::function<void()>& task) {
  auto* button = new QPushButton(text, &window_);
  button->setAutoDefault(true);
  // Some styles leave long texts too little margin.
  const int textWidth = button->fontMetrics().size(Qt::TextShowMnemonic, text).width();
  button->setMinimumWidth(textWidth + 4 * buttonMargin);
  QObject::connect(button, &QPushButton::clicked, &window_, task);
  addWidget(button);
  if (!keys.isEmpty()) {
    auto* shortcut = new QShortcut(keys, &window_);
    QObject::connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
  }
}

}  // namespace tessara
