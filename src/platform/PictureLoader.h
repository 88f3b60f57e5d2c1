#pragma once

#include <string>

namespace tessara {

/// Loads pictures for the panel.
class PictureLoader {
 public:
  PictureLoader() = default;
  PictureLoader(const PictureLoader&) = delete;
  PictureLoader& operator=(const PictureLoader&) = delete;
  virtual ~PictureLoader() = default;

  /// Makes sure that the file can be shown, by decoding it. One that cannot be read, is not a
  /// picture or is larger than any picture of a panel is an invalid picture (error 481) whose
  /// message names file and cause.
  virtual void load(const std::u16string& path) = 0;
};

}  // namespace tessara
