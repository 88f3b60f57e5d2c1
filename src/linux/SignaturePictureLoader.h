#pragma once

#include "platform/PictureLoader.h"

namespace tessara {

/// Knows pictures by the first bytes of their files, for programs that show none: PNG, JPEG, GIF,
/// BMP, ICO and SVG.
class SignaturePictureLoader final : public PictureLoader {
 public:
  void load(const std::u16string& path) override;
};

}  // namespace tessara
