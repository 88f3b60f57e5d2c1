#include "qt/FormView.h"

#include <QEvent>
#include <QIcon>
#include <QMessageBox>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "qt/FormLayout.h"
#include "qt/FormStructure.h"
#include "qt/HyperLinkView.h"
#include "qt/LabelView.h"
#include "qt/OptionView.h"
#include "qt/PictureView.h"
#include "qt/PixelGrid.h"
#include "qt/QtText.h"
#include "qt/TextButtonView.h"

namespace tessara {
namespace {

QIcon iconOf(const Form& form, const QWidget* owner) {
  const QIcon own = Picture::of(form.icon(), {}).icon();
  return own.isNull() && owner != nullptr ? owner->window()->windowIcon() : own;
}

}  // namespace

FormView::FormView(Form& form, QWidget* owner)
    : QDialog(owner == nullptr ? nullptr : owner->window()),
      showError([this](const QString& text) { QMessageBox::critical(this, windowTitle(), text); }),
      form_(&form) {
  setWindowModality(Qt::ApplicationModal);
  setWindowFlag(Qt::MSWindowsFixedSizeDialogHint);
  setWindowIcon(iconOf(form, owner));
  setObjectName(toQt(form.name()));
  makeViews();
  layOut();
  form.setObserver(this);
}

FormView::~FormView() {
  // Deleting the owner deletes the window; nobody could answer the form any more.
  if (Form* form = std::exchange(form_, nullptr)) {
    form->setObserver(nullptr);
    form->hide();
  }
}

void FormView::makeViews() {
  for (Widget* widget : form_->widgets()) {
    if (WidgetView* view = makeView(*widget)) {
      views_[widget] = view;
      view->sync();
    }
  }
  setWindowTitle(readable(form_->titleBar()->caption()));
  auto* ok = static_cast<QPushButton*>(viewOf(form_->defaultButton()));
  ok->setDefault(true);
  // The focus starts at the widget that is most likely to be changed.
  const auto chosen = std::find_if(views_.begin(), views_.end(),
                                   [](const auto& entry) { return entry.first->state().value; });
  (chosen == views_.end() ? ok : &chosen->second->widget())->setFocus();
}

WidgetView* FormView::makeView(Widget& widget) {
  const InputHandler handleInput = [this](WidgetView& view,
                                          const std::function<void(Widget&)>& action) {
    perform(view, action);
  };
  switch (widget.kind()) {
    case WidgetKind::Label:
      return new LabelView(widget, roleOf(widget), this);
    case WidgetKind::PictureBox:
      return new PictureView(widget, PictureGround::None, this);
    case WidgetKind::Button:
      return new TextButtonView(widget, handleInput, this);
    case WidgetKind::Option:
      return new OptionView(widget, handleInput, this);
    case WidgetKind::HyperLink:
      return new HyperLinkView(widget, handleInput, this);
    default:
      return nullptr;
  }
}

QWidget* FormView::viewOf(const Widget& widget) const {
  const auto found = views_.find(&widget);
  return found == views_.end() ? nullptr : &found->second->widget();
}

void FormView::release() {
  if (Form* form = std::exchange(form_, nullptr)) {
    form->setObserver(nullptr);
    hide();
    deleteLater();
  }
}

void FormView::reject() {
  if (form_ != nullptr) {
    Widget& cancel = form_->cancelButton();
    perform(*views_.at(&cancel), [](Widget& widget) { widget.press(); });
  }
}

void FormView::widgetChanged(const Widget& widget, WidgetAspect aspect) {
  if (&widget == form_->titleBar()) {
    setWindowTitle(readable(widget.caption()));
  }
  const auto found = views_.find(&widget);
  if (found == views_.end()) {
    return;
  }
  found->second->sync();
  if (aspect == WidgetAspect::Caption || aspect == WidgetAspect::Place) {
    layOut();
  }
}

void FormView::widgetRefreshed(const Widget& widget) {
  if (QWidget* view = viewOf(widget)) {
    view->repaint();
  }
}

void FormView::perform(WidgetView& view, const std::function<void(Widget&)>& action) {
  // The pointer may leave a window that is already detached.
  if (form_ == nullptr) {
    return;
  }
  const QPointer self(this);
  const QString failure = failureOf([&] { action(view.subject()); });
  if (self == nullptr || form_ == nullptr) {
    return;
  }
  view.sync();
  if (!failure.isEmpty()) {
    showError(failure);
  }
}

void FormView::layOut() {
  const Look look = Look::of(*this, 1);
  for (const auto& [widget, view] : views_) {
    view->setLook(look);
  }
  const FormLayout layout(*form_, logicalDpiX() / twipsPerInch, textNeeds(*this));
  for (const auto& [widget, view] : views_) {
    view->widget().setGeometry(layout.place(*widget));
  }
  setFixedSize(layout.size());
}

void FormView::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  const bool isLook = event->type() == QEvent::PaletteChange ||
                      event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange;
  if (isLook && form_ != nullptr) {
    layOut();
  }
}

}  // namespace tessara
