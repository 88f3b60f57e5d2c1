#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "base/RunTimeError.h"
#include "linux/SignaturePictureLoader.h"

namespace tessara {
namespace {

using namespace std::string_literals;

class PictureLoaderTest : public ::testing::Test {
 protected:
  PictureLoaderTest()
      : folder_(std::filesystem::temp_directory_path() /
                ("tessara-pictures-" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(folder_);
  }
  ~PictureLoaderTest() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::u16string fileWith(const std::string& bytes) const {
    std::ofstream(folder_ / "picture", std::ios::binary) << bytes;
    return (folder_ / "picture").u16string();
  }

  std::filesystem::path folder_;
  SignaturePictureLoader loader_;
};

TEST_F(PictureLoaderTest, KnowsEachFormatByItsFirstBytes) {
  for (const std::string& bytes :
       {"\x89PNG\r\n\x1A\n rest"s, "\xFF\xD8\xFF\xE0"s, "GIF87a"s, "GIF89a"s, "BM rest"s,
        "\0\0\1\0 icon"s, "<?xml version='1.0'?><!-- drawn --><svg/>"s}) {
    EXPECT_NO_THROW(loader_.load(fileWith(bytes))) << bytes;
  }
}

TEST_F(PictureLoaderTest, AFileThatHoldsNoPictureIsNamedWithTheError) {
  for (const std::string& bytes : {""s, "text"s, "\x89PN"s}) {
    try {
      loader_.load(fileWith(bytes));
      ADD_FAILURE() << "no error";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::InvalidPicture);
      EXPECT_NE(std::string(error.what()).find("picture holds no picture"), std::string::npos);
    }
  }
}

TEST_F(PictureLoaderTest, AFileThatIsNotThereCannotBeRead) {
  EXPECT_THROW(loader_.load(u"/no/such/file.png"), RunTimeError);
}

}  // namespace
}  // namespace tessara
