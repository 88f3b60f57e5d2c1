#include "linux/PixbufPictureLoader.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gdk-pixbuf/gdk-pixbuf.h>

#include "linux/GlibPointers.h"
#include "linux/LinuxFileSystem.h"
#include "pictures/PictureFile.h"

namespace tessara {
namespace {

/// What a loader reports while it decodes.
struct Decoding {
  bool isTooLarge = false;
  /// Which rows have been decoded. Loaders accept files that end in the middle.
  std::vector<bool> rows;
};

/// Called when the header has been read. A size of 0 makes the loader stop before it decodes.
void sizeKnown(GdkPixbufLoader* loader, int width, int height, gpointer data) {
  auto& decoding = *static_cast<Decoding*>(data);
  decoding.isTooLarge = !isDecodable(width, height);
  if (decoding.isTooLarge) {
    gdk_pixbuf_loader_set_size(loader, 0, 0);
  } else {
    decoding.rows.resize(static_cast<std::size_t>(height));
  }
}

void rowsDecoded(GdkPixbufLoader* /*loader*/, int /*left*/, int top, int /*width*/, int height,
                 gpointer data) {
  auto& rows = static_cast<Decoding*>(data)->rows;
  for (int row = top; row < top + height; ++row) rows.at(static_cast<std::size_t>(row)) = true;
}

/// What is wrong with a raster picture; nothing if it can be decoded.
std::optional<std::string> faultOf(const PictureFile& file) {
  GError* raised = nullptr;
  const ObjectPointer<GdkPixbufLoader> loader(
      gdk_pixbuf_loader_new_with_type(nameOf(file.format), &raised));
  if (!loader) return std::string(ErrorPointer(raised)->message);

  Decoding decoding;
  g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(sizeKnown), &decoding);
  g_signal_connect(loader.get(), "area-updated", G_CALLBACK(rowsDecoded), &decoding);
  const bool isTaken =
      gdk_pixbuf_loader_write(loader.get(), reinterpret_cast<const guchar*>(file.bytes.data()),
                              file.bytes.size(), &raised) != FALSE;
  // A loader must be closed in any case; the first error is the cause.
  gdk_pixbuf_loader_close(loader.get(), isTaken ? &raised : nullptr);
  const ErrorPointer error(raised);
  if (decoding.isTooLarge) {
    return "it has more than " + std::to_string(PictureFile::maxPixels) + " pixels";
  }
  if (error) return std::string(error->message);
  const auto& rows = decoding.rows;
  const bool isComplete = !rows.empty() && std::all_of(rows.begin(), rows.end(), std::identity());
  return isComplete ? std::nullopt : std::optional<std::string>("it is incomplete");
}

}  // namespace

void PixbufPictureLoader::load(const std::u16string& path) {
  const auto onDisk = pathOfHost(path);
  const PictureFile file = readPictureFile(onDisk);
  if (file.format == PictureFormat::Svg) return;
  const auto fault = faultOf(file);
  if (fault) failPicture(onDisk, *fault);
}

}  // namespace tessara
