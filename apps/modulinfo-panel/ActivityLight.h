#pragma once

#include <QCoreApplication>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "control/HostEvents.h"

namespace tessara {

/// A light in the status line that shows the state of the control: grey when idle, blue while a
/// module is read and briefly with each pass of the scan, orange and square after a failure.
class ActivityLight : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(ActivityLight)

 public:
  explicit ActivityLight(QWidget* parent = nullptr);

  void setActivity(Activity activity);
  /// Repeats its description in the language installed.
  void retranslate();

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  enum class Shine { Idle, Busy, Failed };
  void shine(Shine shine);
  [[nodiscard]] QString description() const;

  Activity activity_ = Activity::AccessOver;
  Shine shine_ = Shine::Idle;
  QTimer flash_;
};

}  // namespace tessara
