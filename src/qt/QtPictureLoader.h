#pragma once

#include "platform/PictureLoader.h"

namespace tessara {

/// Decodes pictures as the view of the panel draws them.
class QtPictureLoader : public PictureLoader {
 public:
  void load(const std::u16string& path) override;
};

}  // namespace tessara
