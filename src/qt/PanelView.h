#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

#include "qt/WidgetView.h"
#include "widgets/Widget.h"

namespace tessara {

/// Shows the panel: draws the model and passes the user's input to it.
///
/// Each change of the model shows at once. The view scales with its size, which is at least 12045
/// by 2505 twips; colours follow the palette. The keyboard reaches every input, button and status
/// text. F5 reads, F6 writes, F1 opens the help, and the system's shortcuts for open, save and
/// print work while the panel has the focus.
///
/// The panel must outlive its view; otherwise the view may only be destroyed. A panel has one view.
class PanelView : public QWidget, private WidgetObserver {
 public:
  explicit PanelView(WidgetOwner& panel, QWidget* parent = nullptr);
  PanelView(const PanelView&) = delete;
  PanelView& operator=(const PanelView&) = delete;
  ~PanelView() override;

  /// Shows an error caused by the user's input; a message box by default.
  std::function<void(const QString& text)> showError;

  /// The Qt widget that draws this widget of the model; null for timers and image lists.
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
  /// Sets the geometry of each view.
  void placeViews();
  /// The same, and updates the look of each view for size, colours and font of the panel.
  void layOut();
  [[nodiscard]] double pixelsPerTwip() const;

  WidgetOwner& panel_;
  /// The views are children of this widget, which deletes them.
  std::map<const Widget*, WidgetView*> views_;
  /// The widget that had the focus when it was disabled; it regains it when enabled.
  QPointer<QWidget> focusAway_;
};

}  // namespace tessara
