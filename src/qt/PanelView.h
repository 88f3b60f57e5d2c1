#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

#include "qt/WidgetView.h"
#include "widgets/Widget.h"

namespace tessara {

/// The panel on the screen: draws a model and brings into it what a person does.
///
/// It shows each change of the model in the same call. It can be given any size from its own on
/// (12045 by 2505 twips) and enlarges everything with it; colours follow the palette. The keyboard
/// reaches every input, button and status text; F5 reads, F6 writes, F1 helps, and the system's
/// keys for open, save and print work while the focus is on the panel.
///
/// The panel must outlive its view, or have no other use than being destroyed. A panel has one
/// view.
class PanelView : public QWidget, private WidgetObserver {
 public:
  explicit PanelView(WidgetOwner& panel, QWidget* parent = nullptr);
  PanelView(const PanelView&) = delete;
  PanelView& operator=(const PanelView&) = delete;
  ~PanelView() override;

  /// Shows what went wrong in something that the person did. A message box at first.
  std::function<void(const QString& text)> showError;

  /// The Qt widget that draws that one of the model; null for timers and image lists.
  [[nodiscard]] QWidget* viewOf(const Widget& widget) const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void widgetChanged(const Widget& widget, WidgetAspect aspect) override;
  void widgetRefreshed(const Widget& widget) override;

  void makeViews();
  WidgetView* makeView(Widget& widget);
  void makeShortcuts();
  void perform(WidgetView& view, const std::function<void(Widget&)>& action);
  void keepFocus(WidgetView& view, const std::function<void()>& change);
  void nameFor(const Widget& widget);
  /// Puts each view in its place.
  void placeViews();
  /// The same, and gives each the look that goes with size, colours and font of the panel.
  void layOut();
  [[nodiscard]] double pixelsPerTwip() const;

  WidgetOwner& panel_;
  /// The views are children of this widget, which deletes them.
  std::map<const Widget*, WidgetView*> views_;
  /// What had the focus when it was disabled, and takes it back when it is enabled again.
  QPointer<QWidget> focusAway_;
};

}  // namespace tessara
