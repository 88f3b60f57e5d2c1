#include "platform/qt/QtPictureLoader.h"

#include "platform/qt/Picture.h"
#include "platform/qt/QtText.h"

namespace tessara {

void QtPictureLoader::load(const std::u16string& path) {
  Picture::fromFile(toQt(path));
}

}  // namespace tessara
