#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <unistd.h>

#include "xml/XmlFileCache.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// A cache, and a file that was written an hour ago.
class XmlFileCacheTest : public ::testing::Test {
 protected:
  XmlFileCacheTest() {
    std::string pattern = (fs::temp_directory_path() / "xml-file-cache-XXXXXX").string();
    folder = ::mkdtemp(pattern.data());
    path = folder / "file.xml";
    write(path, "<r a='1'/>");
  }
  ~XmlFileCacheTest() override { fs::remove_all(folder); }

  void write(const fs::path& file, const std::string& bytes) const {
    std::ofstream(file, std::ios::binary) << bytes;
    fs::last_write_time(file, written);
  }

  std::shared_ptr<const XmlDocument> load() { return cache.load(path.u16string()); }

  std::string loadedValue() {
    const auto document = load();
    return document == nullptr ? "none" : document->attribute(document->root(), 0);
  }

  const fs::file_time_type written = fs::file_time_type::clock::now() - 1h;
  fs::path folder;
  fs::path path;
  XmlFileCache cache;
};

TEST_F(XmlFileCacheTest, ReturnsTheSameDocumentForTheSameFile) {
  const auto first = load();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(load(), first);
  EXPECT_EQ(load(), first);
}

TEST_F(XmlFileCacheTest, DoesNotReadTheSameFileAgain) {
  EXPECT_EQ(loadedValue(), "1");
  // Same length, same time: nothing shows the change.
  std::ofstream(path, std::ios::binary) << "<r a='2'/>";
  fs::last_write_time(path, written);
  EXPECT_EQ(loadedValue(), "1");
}

TEST_F(XmlFileCacheTest, FindsTheSameFileUnderAnotherName) {
  const auto first = load();
  fs::create_symlink(path, folder / "link.xml");
  EXPECT_EQ(cache.load((folder / "link.xml").u16string()), first);
}

TEST_F(XmlFileCacheTest, ReadsAFileOfALaterTime) {
  EXPECT_EQ(loadedValue(), "1");
  write(path, "<r a='2'/>");
  fs::last_write_time(path, written + 1ns);
  EXPECT_EQ(loadedValue(), "2");
}

TEST_F(XmlFileCacheTest, ReadsAFileOfAnEarlierTime) {
  EXPECT_EQ(loadedValue(), "1");
  write(path, "<r a='2'/>");
  fs::last_write_time(path, written - 1ns);
  EXPECT_EQ(loadedValue(), "2");
}

TEST_F(XmlFileCacheTest, ReadsAFileOfAnotherSize) {
  EXPECT_EQ(loadedValue(), "1");
  write(path, "<r a='22'/>");
  EXPECT_EQ(loadedValue(), "22");
}

TEST_F(XmlFileCacheTest, ReadsAFileThatTookThePlaceOfTheFormer) {
  EXPECT_EQ(loadedValue(), "1");
  write(folder / "new.xml", "<r a='2'/>");
  fs::rename(folder / "new.xml", path);
  EXPECT_EQ(loadedValue(), "2");
}

TEST_F(XmlFileCacheTest, LoadsNothingOnceTheFileIsGone) {
  EXPECT_EQ(loadedValue(), "1");
  fs::remove(path);
  EXPECT_EQ(load(), nullptr);
}

TEST_F(XmlFileCacheTest, LoadsNothingOnceTheFileIsNotWellFormed) {
  EXPECT_EQ(loadedValue(), "1");
  write(path, "<r a='1' a='2'/>");
  EXPECT_EQ(load(), nullptr);
  EXPECT_EQ(load(), nullptr);
  write(path, "<r a='3'/>");
  EXPECT_EQ(loadedValue(), "3");
}

TEST_F(XmlFileCacheTest, FileThatMayChangeWithoutShowingItIsReadEachTime) {
  fs::last_write_time(path, fs::file_time_type::clock::now() + 1h);
  EXPECT_NE(load(), load());
}

TEST_F(XmlFileCacheTest, DocumentOutlivesItsFileAndTheCache) {
  std::shared_ptr<const XmlDocument> document;
  {
    XmlFileCache other;
    document = other.load(path.u16string());
  }
  fs::remove(path);
  EXPECT_STREQ(document->attribute(document->root(), 0), "1");
}

}  // namespace
}  // namespace tessara
