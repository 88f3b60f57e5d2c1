// A generic Qt plugin that ends the program as soon as its first window has been painted and
// flushed to the window system.

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>
#include <cstdlib>

namespace {

class FirstFrame : public QObject {
 public:
  explicit FirstFrame(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    const auto* widget = qobject_cast<QWidget*>(object);
    if (!seen_ && event->type() == QEvent::Paint && widget != nullptr && widget->isVisible()) {
      seen_ = true;
      // The rest of the window is painted and flushed within the current event.
      QTimer::singleShot(0, [] { std::_Exit(EXIT_SUCCESS); });
    }
    return false;
  }

 private:
  bool seen_ = false;
};

}  // namespace

class FirstFramePlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "firstframe.json")

 public:
  QObject* create(const QString& /*name*/, const QString& /*specification*/) override {
    return new FirstFrame(this);
  }
};

#include "FirstFrame.moc"
