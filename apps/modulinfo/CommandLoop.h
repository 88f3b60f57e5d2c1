#pragma once

#include <QCoreApplication>
#include <array>

#include "qt/QtEventLoop.h"

namespace tessara {

/// The event loop of a command that brings a control's platform up. One at a time.
class CommandLoop {
 public:
  [[nodiscard]] QtEventLoop& eventLoop() { return loop_; }

 private:
  // Qt wants a program's name and keeps the places where it stands.
  int count_ = 1;
  std::array<char, 10> name_{"modulinfo"};
  std::array<char*, 2> arguments_{name_.data(), nullptr};
  QCoreApplication application_{count_, arguments_.data()};
  QtEventLoop loop_;
};

}  // namespace tessara
