#pragma once

#include <QTimer>
#include <QWidget>
#include <optional>

#include "control/HostEvents.h"
#include "words/HostTexts.h"

namespace tessara {

/// A light in the status line that shows what the control does: grey when idle, blue while a module
/// is read and for a moment with each pass of the scan, orange and square after a failure.
class ActivityLight : public QWidget {
 public:
  explicit ActivityLight(QWidget* parent = nullptr);

  void setActivity(Activity activity);
  /// The words in which it says what it shows.
  void setWords(const HostTexts& words);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  enum class Shine { Idle, Busy, Failed };
  void shine(Shine shine);
  void say();

  Activity activity_ = Activity::AccessOver;
  HostTexts words_;
  Shine shine_ = Shine::Idle;
  QTimer flash_;
};

}  // namespace tessara
