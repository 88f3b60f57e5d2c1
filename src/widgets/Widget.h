#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tessara {

/// The kind of a widget; it decides which values of its state have a meaning.
enum class WidgetKind {
  DropDownList,
  TextBox,
  Timer,
  Label,
  Image,
  PictureBox,
  Button,
  Frame,
  ImageList,
  Option,
  FormCaption,
  HyperLink,
};

/// The picture of a widget: none, a number from an image list, or a key from one or a file's path.
using PictureSource = std::variant<std::monostate, std::int32_t, std::u16string>;

/// A place on the panel, in twips (1/1440 inch; 15 to a pixel at 96 dpi).
struct Place {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;

  bool operator==(const Place&) const = default;
};

/// The visible state of a widget.
struct WidgetState {
  std::u16string caption{};
  std::u16string text{};
  std::u16string toolTipTitle{};
  std::u16string toolTipText{};
  bool enabled = true;
  bool visible = true;
  PictureSource picture{};
  std::vector<std::u16string> items{};
  /// The selected line from 0; -1 with nothing selected.
  std::int32_t index = -1;
  /// The interval of a timer in milliseconds.
  std::int32_t interval = 0;
  /// An option is set.
  bool value = false;
  /// The background colours of a text button from top to bottom, as 0xRRGGBB.
  std::uint32_t gradientstartcolor = 0;
  std::uint32_t gradientendcolor = 0;
  Place place{};
};

/// The value of a widget's state that has changed.
enum class WidgetAspect {
  Caption,
  Text,
  ToolTipTitle,
  ToolTipText,
  Enabled,
  Visible,
  Picture,
  Items,
  Index,
  Value,
  Gradient,
  Place,
};

class Widget;

/// Draws or monitors widgets. Called after each write, even one that changes nothing.
class WidgetObserver {
 public:
  WidgetObserver() = default;
  WidgetObserver(const WidgetObserver&) = delete;
  WidgetObserver& operator=(const WidgetObserver&) = delete;
  virtual ~WidgetObserver() = default;

  virtual void widgetChanged(const Widget& widget, WidgetAspect aspect) = 0;
  /// The widget must be painted at once.
  virtual void widgetRefreshed(const Widget& widget) = 0;
};

/// The widgets of one form, and the one observer that is told of their changes.
class WidgetOwner {
 public:
  WidgetOwner() = default;
  WidgetOwner(const WidgetOwner&) = delete;
  WidgetOwner& operator=(const WidgetOwner&) = delete;

  /// Null for none. The observer must live as long as it is set.
  void setObserver(WidgetObserver* observer) { observer_ = observer; }
  [[nodiscard]] WidgetObserver* observer() const { return observer_; }

  /// All widgets in the order of their declaration.
  [[nodiscard]] const std::vector<Widget*>& widgets() const { return widgets_; }
  /// The widget of that name ("LblModulState", "LngLabel[3]"); null if there is none.
  [[nodiscard]] Widget* find(std::u16string_view name) const;
  /// The same; a name that no widget has is an invalid call (error 5).
  [[nodiscard]] Widget& widget(std::u16string_view name) const;

  /// While the modal form of that name is open, no button of this form can be pressed and nothing
  /// can be typed; an empty name ends this.
  void setBlockedBy(std::u16string form) { blockedBy_ = std::move(form); }
  [[nodiscard]] const std::u16string& blockedBy() const { return blockedBy_; }

 private:
  friend class Widget;
  std::u16string blockedBy_;
  WidgetObserver* observer_ = nullptr;
  std::vector<Widget*> widgets_;
};

/// One widget of a form: a value that the control writes, an observer draws, and a person or a
/// host's code selects, presses and types into.
class Widget {
 public:
  Widget(WidgetOwner& owner, std::u16string name, WidgetKind kind, WidgetState design = {});
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;
  ~Widget() = default;

  [[nodiscard]] const std::u16string& name() const { return name_; }
  [[nodiscard]] WidgetKind kind() const { return kind_; }
  [[nodiscard]] const WidgetState& state() const { return state_; }
  [[nodiscard]] const std::u16string& caption() const { return state_.caption; }
  [[nodiscard]] const std::u16string& text() const { return state_.text; }
  [[nodiscard]] bool enabled() const { return state_.enabled; }
  [[nodiscard]] bool visible() const { return state_.visible; }

  void setCaption(std::u16string caption);
  /// The text of a box. In a drop-down list it also selects the item with that text, or none; no
  /// handler runs.
  void setText(std::u16string text);
  void setToolTipTitle(std::u16string title);
  void setToolTipText(std::u16string text);
  void setEnabled(bool enabled);
  void setVisible(bool visible);
  void setPicture(PictureSource picture);
  /// Moves the widget to another row: top and height in twips.
  void setRow(std::int32_t top, std::int32_t height);
  /// Moves the widget sideways: left in twips.
  void setLeft(std::int32_t left);
  /// Sets an option, which clears the other options of its form, or clears it. No handler runs.
  void setValue(bool value);
  void setGradient(std::uint32_t startColor, std::uint32_t endColor);
  void clearItems();
  void addItem(std::u16string item);
  /// Asks the observer to paint the widget at once.
  void refresh();

  /// Selects a line, by a person or by code, and runs the handler, even for the line that is
  /// already selected. A line that does not exist is an invalid property value (error 380).
  void select(std::int32_t index);
  /// Sets an option as a person does, and runs the handler, even for one that is already set.
  /// A disabled or hidden one is an invalid call (error 5).
  void select();
  /// Presses a button or a hyperlink. A disabled or hidden one, or one on a form that a modal form
  /// blocks, is an invalid call (error 5).
  void press();
  /// Replaces the text of a box as a person's typing does; no handler runs. Errors as for press.
  void type(std::u16string text);
  /// The pointer enters or leaves the widget.
  void pointerEnter();
  void pointerLeave();

  /// Runs the handler, as a tick of a timer does.
  void tick();

  /// What runs when a line or an option is chosen, a button pressed or a timer ticks.
  void setClickHandler(std::function<void()> handler);
  /// What runs when the pointer enters and leaves the widget.
  void setPointerHandlers(std::function<void()> enter, std::function<void()> leave);

 private:
  void tell(WidgetAspect aspect);
  void requireUsable(const char* action) const;

  WidgetOwner& owner_;
  std::u16string name_;
  WidgetKind kind_;
  WidgetState state_;
  std::function<void()> onClick_;
  std::function<void()> onPointerEnter_;
  std::function<void()> onPointerLeave_;
};

}  // namespace tessara
