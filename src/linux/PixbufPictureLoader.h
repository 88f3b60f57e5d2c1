#pragma once

#include "platform/PictureLoader.h"

namespace tessara {

/// Decodes pictures without showing them, for programs without windows: PNG, JPEG, GIF, BMP and ICO
/// through gdk-pixbuf. SVG needs no more than what readPictureFile() checks.
class PixbufPictureLoader final : public PictureLoader {
 public:
  void load(const std::u16string& path) override;
};

}  // namespace tessara
