#include "ActivityLight.h"

#include <QPainter>
#include <chrono>

#include "platform/qt/Look.h"
#include "platform/qt/PixelGrid.h"

namespace tessara {
namespace {

constexpr std::chrono::milliseconds flashLasts{400};
constexpr QRgb failedColour = 0xffd9622b;

const char* meaning(Activity activity) {
  switch (activity) {
    case Activity::AccessOver:
    case Activity::HostWorkEnded:
      return "Ready";
    case Activity::Busy:
      return "Reading the module";
    case Activity::ConnectionFailed:
      return "The module could not be read";
    case Activity::Scanning:
      return "Keeping the status current";
    case Activity::NoInterface:
      return "No port and no reader was found";
    case Activity::PassedOn7:
    case Activity::PassedOn8:
      break;
  }
  return "Work of the host";
}

}  // namespace

ActivityLight::ActivityLight(QWidget* parent) : QWidget(parent) {
  setObjectName("activity");
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  flash_.setSingleShot(true);
  flash_.setInterval(flashLasts);
  flash_.callOnTimeout([this] { shine(Shine::Idle); });
}

void ActivityLight::setActivity(Activity activity) {
  setToolTip(meaning(activity));
  setAccessibleName(meaning(activity));
  flash_.stop();
  switch (activity) {
    case Activity::Busy:
      shine(Shine::Busy);
      break;
    case Activity::Scanning:
      shine(Shine::Busy);
      flash_.start();
      break;
    case Activity::ConnectionFailed:
    case Activity::NoInterface:
      shine(Shine::Failed);
      break;
    default:
      shine(Shine::Idle);
  }
}

void ActivityLight::shine(Shine shine) {
  shine_ = shine;
  update();
}

QSize ActivityLight::sizeHint() const {
  const int side = fontMetrics().height();
  return {side, side};
}

void ActivityLight::paintEvent(QPaintEvent* /*event*/) {
  const Look look = Look::of(*this, 1);
  const double side = height() * 0.6;
  const QRectF light((width() - side) / 2, (height() - side) / 2, side, side);
  QPainter painter(this);
  switch (shine_) {
    case Shine::Idle:
      drawRounded(painter, light, side / 2, Qt::transparent, look.edge, 1.5);
      break;
    case Shine::Busy:
      drawRounded(painter, light, side / 2, look.accent, look.accent, 0);
      break;
    case Shine::Failed:
      drawRounded(painter, light, side / 6, QColor(failedColour), QColor(failedColour), 0);
      break;
  }
}

}  // namespace tessara
