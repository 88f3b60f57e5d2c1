#pragma once

#include <QIcon>
#include <functional>

namespace tessara {

/// An icon that is made when it is drawn first, for those that cost more than the program's first
/// window can wait for.
QIcon deferredIcon(std::function<QIcon()> make);

}  // namespace tessara
