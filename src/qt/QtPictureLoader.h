#pragma once

#include "platform/PictureLoader.h"

namespace tessara {

/// Loads pictures as the view of the panel draws them: SVG, and every raster format that Qt reads.
class QtPictureLoader : public PictureLoader {
 public:
  void load(const std::u16string& path) override;
};

}  // namespace tessara
