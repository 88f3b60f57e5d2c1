#pragma once

#include <optional>
#include <string>

#include "pictures/PictureFile.h"

namespace tessara {

/// The first picture of an icon, which is the one that is shown, as a file of its own: a PNG, or an
/// icon of one picture. Nothing if the icon does not hold it completely.
std::optional<PictureFile> firstOfIcon(const std::string& bytes);

/// What is wrong with the outline of a raster picture, for the end of a sentence about it; nothing
/// if it may be decoded. Finds what some decoders tolerate and others do not: pixels that are
/// missing at the end of a BMP or a GIF.
std::optional<std::string> faultOfRaster(const PictureFile& file);

}  // namespace tessara
