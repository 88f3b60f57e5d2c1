#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/RunTimeError.h"
#include "pictures/PictureFile.h"

namespace tessara::testing {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class PictureFileTest : public ::testing::Test {
 protected:
  PictureFileTest()
      : folder_(fs::temp_directory_path() / ("tessara-files-" + std::to_string(::getpid()))) {
    fs::create_directories(folder_);
  }
  ~PictureFileTest() override { fs::remove_all(folder_); }

  [[nodiscard]] fs::path path() const { return folder_ / "picture"; }

  /// The message about this file without what all of them begin with.
  [[nodiscard]] std::string refusal() const {
    try {
      readPictureFile(path());
      return "none";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::InvalidPicture);
      const std::string message = error.what();
      const std::string front = "The picture " + path().string() + " cannot be shown: ";
      EXPECT_TRUE(message.starts_with(front)) << message;
      return message.substr(front.size());
    }
  }
  [[nodiscard]] std::string refusal(const std::string& bytes) const {
    std::ofstream(path(), std::ios::binary) << bytes;
    return refusal();
  }

 private:
  fs::path folder_;
};

TEST_F(PictureFileTest, RecognisesAFormatByTheFirstBytes) {
  for (const auto& [bytes, format] : {std::pair("\x89PNG\r\n\x1A\n rest"s, PictureFormat::Png),
                                      std::pair("\xFF\xD8\xFF\xE0"s, PictureFormat::Jpeg),
                                      std::pair("  <svg/>"s, PictureFormat::Svg)}) {
    std::ofstream(path(), std::ios::binary) << bytes;
    const PictureFile file = readPictureFile(path());
    EXPECT_EQ(file.format, format);
    EXPECT_EQ(file.bytes, bytes);
  }
  EXPECT_EQ(refusal("text"), "it is not a picture");
}

TEST_F(PictureFileTest, AFileThatIsNotThereCannotBeRead) {
  EXPECT_EQ(refusal(), "it cannot be read");
}

TEST_F(PictureFileTest, AFolderAndAPipeAreNotFiles) {
  ASSERT_EQ(::mkfifo(path().c_str(), 0600), 0);
  EXPECT_EQ(refusal(), "it is not a file");
  fs::remove(path());
  fs::create_directory(path());
  EXPECT_EQ(refusal(), "it is not a file");
}

TEST_F(PictureFileTest, ALargeFileIsNotRead) {
  std::ofstream(path(), std::ios::binary) << "<svg/>";
  fs::resize_file(path(), PictureFile::maxSize + 1);
  EXPECT_EQ(refusal(), "it is larger than 16777216 bytes");
}

TEST_F(PictureFileTest, MissingPixelsOfABmpAreNoticed) {
  std::string header = "BM"s + std::string(8, '\0') + "\x36\0\0\0\x28\0\0\0\2\0\0\0"s;
  const std::string rest = "\1\0\x18\0"s + std::string(24, '\0');
  for (const std::string& height : {"\2\0\0\0"s, "\xFE\xFF\xFF\xFF"s}) {
    EXPECT_EQ(refusal(header + height + rest + std::string(16, 'x')), "none");
    EXPECT_EQ(refusal(header + height + rest + std::string(15, 'x')), "it is incomplete");
  }
  EXPECT_EQ(refusal(header + "\0\0\0\0"s + rest), "it has no pixels");
  EXPECT_EQ(refusal(header + "\0\0\0\x7F"s + rest), "it has more than 8388608 pixels");
}

TEST_F(PictureFileTest, OfAnIconTheFirstPictureIsTaken) {
  const std::string png = "\x89PNG\r\n\x1A\n rest";
  const std::string icon =
      "\0\0\1\0\2\0"s + "\2\2\0\0\1\0\x18\0\x0D\0\0\0\x26\0\0\0"s + std::string(16, '\xFF') + png;
  std::ofstream(path(), std::ios::binary) << icon;
  const PictureFile file = readPictureFile(path());
  EXPECT_EQ(file.format, PictureFormat::Png);
  EXPECT_EQ(file.bytes, png);
  EXPECT_EQ(refusal(icon.substr(0, icon.size() - 1)), "it is incomplete");
}

TEST_F(PictureFileTest, PixelsAreLimited) {
  EXPECT_TRUE(isDecodable(1, 1));
  EXPECT_TRUE(isDecodable(3840, 2160));
  EXPECT_TRUE(isDecodable(4096, 2048));
  EXPECT_FALSE(isDecodable(4097, 2048));
  EXPECT_FALSE(isDecodable(0, 10));
  EXPECT_FALSE(isDecodable(10, -1));
  EXPECT_FALSE(isDecodable(0x7FFFFFFF, 0x7FFFFFFF));
}

}  // namespace
}  // namespace tessara::testing
