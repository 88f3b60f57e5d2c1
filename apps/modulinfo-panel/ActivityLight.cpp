#include "ActivityLight.h"

#include <QPainter>
#include <chrono>

#include "qt/Look.h"
#include "qt/PixelGrid.h"

namespace tessara {
namespace {

constexpr std::chrono::milliseconds flashLasts{400};
constexpr QRgb failedColour = 0xffd9622b;

Word meaning(Activity activity) {
  switch (activity) {
    case Activity::AccessOver:
    case Activity::HostWorkEnded:
      return Word::ActivityReady;
    case Activity::Busy:
      return Word::ActivityBusy;
    case Activity::ConnectionFailed:
      return Word::ActivityFailed;
    case Activity::Scanning:
      return Word::ActivityScanning;
    case Activity::NoInterface:
      return Word::ActivityNoInterface;
    case Activity::PassedOn7:
    case Activity::PassedOn8:
      break;
  }
  return Word::ActivityHost;
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
  activity_ = activity;
  say();
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

void ActivityLight::setWords(const HostTexts& words) {
  words_ = words;
  say();
}

void ActivityLight::say() {
  setToolTip(words_(meaning(activity_)));
  setAccessibleName(words_(meaning(activity_)));
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
