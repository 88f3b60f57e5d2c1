#include "qt/QtPictureLoader.h"

#include "qt/Picture.h"
#include "qt/QtText.h"

namespace tessara {

void QtPictureLoader::load(const std::u16string& path) {
  Picture::fromFile(toQt(path));
}

}  // namespace tessara
