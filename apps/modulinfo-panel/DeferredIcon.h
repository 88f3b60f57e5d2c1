#pragma once

#include <QIcon>
#include <functional>

namespace tessara {

/// An icon that is made when it is first drawn, for icons too expensive to make before the first
/// window is shown.
QIcon deferredIcon(std::function<QIcon()> make);

}  // namespace tessara
