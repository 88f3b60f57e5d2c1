#include <cstdint>

#include <sys/resource.h>

#include "PictureFiles.h"
#include "Programs.h"
#include "base/RunTimeError.h"
#include "linux/PixbufPictureLoader.h"

namespace tessara::testing {
namespace {

class PictureLoaderTest : public Programs {
 protected:
  [[nodiscard]] std::filesystem::path path() const { return folder() / "picture"; }

  /// The number of the error that loading these bytes raises; 0 for none.
  [[nodiscard]] std::int32_t errorFor(const PictureSample& sample) const {
    put(path(), sample.bytes);
    return error();
  }
  [[nodiscard]] std::int32_t error() const {
    try {
      PixbufPictureLoader().load(path().u16string());
      return 0;
    } catch (const RunTimeError& raised) {
      return static_cast<std::int32_t>(raised.number());
    }
  }
};

TEST_F(PictureLoaderTest, LoadsPictures) {
  for (const auto& sample : pictures()) {
    EXPECT_EQ(errorFor(sample), 0) << sample.name;
  }
}

TEST_F(PictureLoaderTest, RefusesWhatIsNotAPicture) {
  for (const auto& sample : notPictures()) {
    EXPECT_EQ(errorFor(sample), 481) << sample.name;
  }
}

TEST_F(PictureLoaderTest, RefusesEveryPictureThatEndsInItsHeader) {
  for (const auto& sample : pictures()) {
    for (std::size_t size = 0; size < 20; ++size) {
      EXPECT_EQ(errorFor({{}, sample.bytes.substr(0, size)}), 481) << sample.name << ' ' << size;
    }
  }
}

TEST_F(PictureLoaderTest, NamesTheFileAndTheCause) {
  put(path(), pictures().front().bytes.substr(0, 40));
  const std::string message = errorOf([this] { PixbufPictureLoader().load(path().u16string()); });
  EXPECT_TRUE(message.starts_with("The picture " + path().string() + " cannot be shown: "));
}

TEST_F(PictureLoaderTest, NeedsLittleMemoryForWhatIsNotAPicture) {
  constexpr long maxKilobytes = 64 * 1024;
  const auto most = [] {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
  };
  for (const auto& sample : notPictures()) {
    put(path(), sample.bytes);
    const int isLittle = inNewProcess([&] {
      const long before = most();
      return error() == 481 && most() - before < maxKilobytes ? 1 : 0;
    });
    EXPECT_EQ(isLittle, 1) << sample.name;
  }
}

TEST_F(PictureLoaderTest, TakesABackslashForASeparator) {
  put(path(), pictures().front().bytes);
  EXPECT_NO_THROW(PixbufPictureLoader().load(folder().u16string() + u"\\picture"));
}

}  // namespace
}  // namespace tessara::testing
