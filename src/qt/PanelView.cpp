#include "qt/PanelView.h"

#include <QEvent>
#include <QMessageBox>
#include <QShortcut>
#include <exception>

#include "qt/DropDownView.h"
#include "qt/FrameView.h"
#include "qt/IconButtonView.h"
#include "qt/LabelView.h"
#include "qt/PanelLayout.h"
#include "qt/PanelStructure.h"
#include "qt/PictureView.h"
#include "qt/PixelGrid.h"
#include "qt/QtText.h"
#include "qt/TextBoxView.h"

namespace tessara {
namespace {

LabelRole panelRoleOf(const Widget& label) {
  if (label.name() == u"LabelDeviceName") {
    return LabelRole::StrongValue;
  }
  if (label.name() == u"LblModulState" || label.name() == u"LblChnState") {
    return LabelRole::LongValue;
  }
  return captionFor(label.name()).empty() ? LabelRole::Caption : LabelRole::Value;
}

}  // namespace

PanelView::PanelView(WidgetOwner& panel, QWidget* parent)
    : QWidget(parent),
      showError([this](const QString& text) {
        QMessageBox::critical(window(), window()->windowTitle(), text);
      }),
      panel_(panel) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  makeViews();
  for (const auto& row : captions()) {
    nameFor(*panel.find(row.caption));
  }
  makeShortcuts();
  resize(PanelView::sizeHint());
  panel.setObserver(this);
}

PanelView::~PanelView() {
  if (panel_.observer() == this) {
    panel_.setObserver(nullptr);
  }
}

void PanelView::makeViews() {
  const auto make = [this](Widget* widget) {
    WidgetView* view = views_.contains(widget) ? nullptr : makeView(*widget);
    if (view != nullptr) {
      views_[widget] = view;
      view->sync();
    }
  };
  // The order of creation is also the stacking order and the tab order.
  for (const auto* name : {u"Frame1", u"Frame2", u"Frame3", u"Frame14"}) {
    make(panel_.find(name));
  }
  for (const auto name : tabOrder()) {
    make(panel_.find(name));
  }
  for (Widget* widget : panel_.widgets()) {
    make(widget);
  }
}

WidgetView* PanelView::makeView(Widget& widget) {
  const InputHandler handleInput = [this](WidgetView& view,
                                          const std::function<void(Widget&)>& action) {
    perform(view, action);
  };
  switch (widget.kind()) {
    case WidgetKind::Frame:
      return new FrameView(widget, widget.name() == u"Frame3" ? FrameRole::Foot : FrameRole::Card,
                           this);
    case WidgetKind::Label:
      return new LabelView(widget, panelRoleOf(widget), this);
    case WidgetKind::Image:
    case WidgetKind::PictureBox:
      return new PictureView(widget, PictureGround::White, this);
    case WidgetKind::Button:
      return new IconButtonView(widget, shortcutFor(widget.name()), handleInput, this);
    case WidgetKind::DropDownList:
      return new DropDownView(widget,
                              widget.name() == u"ComboBaudrate" ? DropDownView::Editing::Digits
                                                                : DropDownView::Editing::None,
                              handleInput, this);
    case WidgetKind::TextBox:
      return new TextBoxView(widget, handleInput, this);
    case WidgetKind::Timer:
    case WidgetKind::ImageList:
    // These are on forms of their own.
    case WidgetKind::Option:
    case WidgetKind::FormCaption:
    case WidgetKind::HyperLink:
      return nullptr;
  }
  return nullptr;
}

void PanelView::makeShortcuts() {
  for (const auto& row : shortcuts()) {
    WidgetView& view = *views_.at(panel_.find(row.button));
    auto* shortcut = new QShortcut(row.keys, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, &view.widget(),
            [&button = static_cast<IconButtonView&>(view)] { button.click(); });
  }
}

QWidget* PanelView::viewOf(const Widget& widget) const {
  const auto found = views_.find(&widget);
  return found == views_.end() ? nullptr : &found->second->widget();
}

double PanelView::pixelsPerTwip() const {
  return logicalDpiX() / twipsPerInch;
}

QSize PanelView::sizeHint() const {
  return (QSizeF(Panel::width, Panel::height) * pixelsPerTwip()).toSize();
}

void PanelView::widgetChanged(const Widget& widget, WidgetAspect aspect) {
  const auto found = views_.find(&widget);
  if (found == views_.end()) {
    return;
  }
  WidgetView& view = *found->second;
  keepFocus(view, [&view] { view.sync(); });
  if (aspect == WidgetAspect::Caption) {
    nameFor(widget);
  }
  // A button keeps its space with any picture; the control sets it all the time.
  const bool isPicture = aspect == WidgetAspect::Picture && widget.kind() != WidgetKind::Button;
  if (aspect == WidgetAspect::Visible || aspect == WidgetAspect::Place || isPicture) {
    placeViews();
  }
}

void PanelView::widgetRefreshed(const Widget& widget) {
  if (QWidget* view = viewOf(widget)) {
    view->repaint();
  }
}

void PanelView::keepFocus(WidgetView& view, const std::function<void()>& change) {
  // Qt would move the focus to the next button, and Space would then press that one.
  QWidget& own = view.widget();
  if (own.hasFocus() && !(view.subject().enabled() && view.subject().visible())) {
    focusAway_ = &own;
    setFocus();
  }
  change();
  if (focusAway_ == &own && own.isEnabled() && !own.isHidden()) {
    focusAway_ = nullptr;
    if (hasFocus()) {
      own.setFocus();
    }
  }
}

void PanelView::nameFor(const Widget& widget) {
  for (const auto& row : captions()) {
    if (row.caption != widget.name() && row.named != widget.name()) {
      continue;
    }
    const Widget& named = *panel_.find(row.named);
    QString name = readable(panel_.find(row.caption)->caption());
    if (named.kind() == WidgetKind::Label) {
      name += " " + readable(named.caption());
    } else if (name.endsWith(':')) {
      name = name.chopped(1).trimmed();
    }
    viewOf(named)->setAccessibleName(name);
    static_cast<QLabel*>(viewOf(*panel_.find(row.caption)))->setBuddy(viewOf(named));
    if (named.name() == u"LblModulState") {
      viewOf(panel_.widget(u"ImageDevState"))->setAccessibleName(name);
    }
  }
}

void PanelView::perform(WidgetView& view, const std::function<void(Widget&)>& action) {
  const QPointer self(this);
  const QString failure = failureOf([&] { action(view.subject()); });
  if (self == nullptr) {
    return;
  }
  view.sync();
  if (!failure.isEmpty()) {
    showError(failure);
  }
}

void PanelView::placeViews() {
  const PanelLayout layout(panel_, size(), pixelsPerTwip());
  for (const auto& [widget, view] : views_) {
    view->widget().setGeometry(layout.place(*widget));
  }
}

void PanelView::layOut() {
  placeViews();
  const Look look = Look::of(*this, PanelLayout(panel_, size(), pixelsPerTwip()).scale());
  for (const auto& [widget, view] : views_) {
    view->setLook(look);
  }
}

void PanelView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
      event->type() == QEvent::StyleChange) {
    layOut();
  }
}

void PanelView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layOut();
}

}  // namespace tessara
