#include "qt/QtMessageHelper.h"

#include <QApplication>
#include <QMessageBox>

#include "qt/QtText.h"

namespace tessara {
namespace {

constexpr std::int32_t answerOk = 1;

QMessageBox::Icon iconOf(MessageStyle style) {
  switch (style) {
    case MessageStyle::Error:
      return QMessageBox::Critical;
    case MessageStyle::Warning:
      return QMessageBox::Warning;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

std::int32_t QtMessageHelper::Show(const std::u16string& text, MessageStyle style,
                                   const std::u16string& title) {
  // An open dialog is in front of the parent window of the boxes.
  QWidget* dialog = QApplication::activeModalWidget();
  QWidget* parent = dialog != nullptr ? dialog : parent_.data();
  // The parent may be deleted while the box is open, and the box with it.
  const QPointer box =
      new QMessageBox(iconOf(style), toQt(title), toQt(text), QMessageBox::Ok, parent);
  box->setTextFormat(Qt::PlainText);
  box->exec();
  delete box;
  return answerOk;
}

}  // namespace tessara
