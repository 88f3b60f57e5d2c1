#include "ActivityLight.h"

#include <QPainter>
#include <chrono>

#include "qt/Look.h"
#include "qt/PixelGrid.h"

namespace tessara {
namespace {

constexpr std::chrono::milliseconds flashLasts{400};
constexpr QRgb failedColour = 0xffd9622b;

}  // namespace

ActivityLight::ActivityLight(QWidget* parent) : QWidget(parent) {
  setObjectName("activity");
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  flash_.setSingleShot(true);
  flash_.setInterval(flashLasts);
  flash_.callOnTimeout([this] { shine(Shine::Idle); });
}

void ActivityLight::setActivity(Activity activity) {
  activity_ = activity;
  retranslate();
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

QString ActivityLight::description() const {
  switch (activity_) {
    case Activity::AccessOver:
    case Activity::HostWorkEnded:
      //: State of the program: nothing is in progress
      return tr("Ready");
    case Activity::Busy:
      return tr("Accessing the module");
    case Activity::ConnectionFailed:
      return tr("The module could not be read");
    case Activity::Scanning:
      return tr("Reading the status continuously");
    case Activity::NoInterface:
      return tr("No port or reader found");
    case Activity::PassedOn7:
    case Activity::PassedOn8:
      break;
  }
  //: This program is at work on a record; the control waits
  return tr("Host busy");
}

void ActivityLight::retranslate() {
  setToolTip(description());
  setAccessibleName(description());
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
