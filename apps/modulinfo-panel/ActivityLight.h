#pragma once

#include <QTimer>
#include <QWidget>
#include <optional>

#include "control/HostEvents.h"

namespace tessara {

/// A light in the status line that shows what the control does: grey when idle, blue while a module
/// is read and for a moment with each pass of the scan, orange and square after a failure.
class ActivityLight : public QWidget {
 public:
  explicit ActivityLight(QWidget* parent = nullptr);

  void setActivity(Activity activity);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  enum class Shine { Idle, Busy, Failed };
  void shine(Shine shine);

  Shine shine_ = Shine::Idle;
  QTimer flash_;
};

}  // namespace tessara
