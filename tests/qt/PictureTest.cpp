#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <set>

#include <gtest/gtest.h>

#include "PictureFiles.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "control/Panel.h"
#include "qt/Picture.h"
#include "qt/QtPictureLoader.h"
#include "qt/QtText.h"

namespace tessara::testing {
namespace {

const Inks blackAndBlue{Qt::black, Qt::blue};

QImage drawn(const Picture& picture, QSize size, double ratio = 1) {
  QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  picture.draw(painter, QRectF(QPointF(), size), Qt::AlignHCenter);
  painter.end();
  return image;
}

QImage drawn(const PictureSource& source, QSize size = QSize(33, 33), double ratio = 1) {
  return drawn(Picture::of(source, blackAndBlue), size, ratio);
}

std::set<QRgb> colours(const QImage& image) {
  std::set<QRgb> found;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) == 255) {
        found.insert(image.pixel(x, y));
      }
    }
  }
  return found;
}

int differingPixels(const QImage& one, const QImage& other) {
  int differing = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const bool inOne = qAlpha(one.pixel(x, y)) > 127;
      const bool inOther = qAlpha(other.pixel(x, y)) > 127;
      differing += inOne != inOther ? 1 : 0;
    }
  }
  return differing;
}

TEST(Picture, EveryKeyOfTheButtonsHasOneOfItsOwn) {
  const Panel panel;
  std::vector<QImage> images;
  for (const auto& key : panel.ImageListButtons.state().items) {
    const QImage image = drawn(key);
    EXPECT_FALSE(Picture::of(key, blackAndBlue).isNull()) << toUtf8(key);
    for (const auto& other : images) {
      EXPECT_GE(differingPixels(image, other), 50) << toUtf8(key);
    }
    images.push_back(image);
  }
  EXPECT_EQ(images.size(), 9U);
}

TEST(Picture, ButtonsAreDrawnInTheirTwoInksOnly) {
  const Panel panel;
  for (const auto& key : panel.ImageListButtons.state().items) {
    const auto found = colours(drawn(key, QSize(330, 330)));
    EXPECT_TRUE(found.contains(QColor(Qt::black).rgb())) << toUtf8(key);
    EXPECT_TRUE(found.contains(QColor(Qt::blue).rgb())) << toUtf8(key);
    // Where the two meet there are blends of them, which are blue as well.
    for (const QRgb colour : found) {
      EXPECT_EQ(qRed(colour) + qGreen(colour), 0) << toUtf8(key);
    }
  }
}

TEST(Picture, StatesDifferInShapeAndColour) {
  const QImage good = drawn(1, QSize(32, 32));
  const QImage bad = drawn(2, QSize(32, 32));
  EXPECT_GE(differingPixels(good, bad), 200);
  const QColor goodColour = good.pixelColor(16, 6);
  const QColor badColour = bad.pixelColor(16, 8);
  EXPECT_GT(goodColour.green(), goodColour.red() + 50);
  EXPECT_GT(badColour.red(), badColour.green() + 50);
}

TEST(Picture, IsDrawnInTheDetailOfTheScreen) {
  const QImage fine = drawn(u"Settings", QSize(33, 33), 2);
  const QImage enlarged =
      drawn(u"Settings").scaled(66, 66, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  int differing = 0;
  for (int y = 0; y < 66; ++y) {
    for (int x = 0; x < 66; ++x) {
      differing += std::abs(qAlpha(fine.pixel(x, y)) - qAlpha(enlarged.pixel(x, y))) > 40 ? 1 : 0;
    }
  }
  EXPECT_GT(differing, 100);
}

TEST(Picture, LinesAreSharpAtTheirOwnSize) {
  // The left edge of the disk: nothing, then two full pixels, then nothing.
  const QImage save = drawn(u"Save");
  EXPECT_EQ(qAlpha(save.pixel(4, 16)), 0);
  EXPECT_EQ(qAlpha(save.pixel(5, 16)), 255);
  EXPECT_EQ(qAlpha(save.pixel(6, 16)), 255);
  EXPECT_EQ(qAlpha(save.pixel(7, 16)), 0);
}

TEST(Picture, NoSourceAndUnknownSourcesGiveNothingToDraw) {
  EXPECT_TRUE(Picture().isNull());
  for (const PictureSource& source : std::vector<PictureSource>{
           PictureSource{}, 0, 3, u"", u"Nothing", u"/no/such/picture.png"}) {
    EXPECT_TRUE(Picture::of(source, blackAndBlue).isNull());
  }
}

TEST(Picture, ThereIsOneForTheProgram) {
  EXPECT_FALSE(Picture::application().isNull());
}

class PictureFile : public ::testing::Test {
 protected:
  std::u16string write(const QString& name, const QByteArray& content) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return fromQt(file.fileName());
  }
  std::u16string writeImage(const QString& name, QSize size, const QColor& colour) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    EXPECT_TRUE(image.save(folder.filePath(name), "PNG"));
    return fromQt(folder.filePath(name));
  }

  QTemporaryDir folder;
};

TEST_F(PictureFile, KeepsItsShapeInTheMiddleOfItsRoom) {
  const QImage image = drawn(writeImage("wide.png", QSize(200, 50), Qt::red), QSize(100, 100));
  EXPECT_EQ(image.pixelColor(50, 50), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(1, 39), QColor(Qt::red));
  EXPECT_EQ(qAlpha(image.pixel(50, 30)), 0);
  EXPECT_EQ(qAlpha(image.pixel(50, 70)), 0);
}

TEST_F(PictureFile, ASmallRasterPictureIsNotBlownUp) {
  const QImage image = drawn(writeImage("small.png", QSize(10, 10), Qt::red), QSize(100, 100));
  EXPECT_EQ(image.pixelColor(50, 50), QColor(Qt::red));
  EXPECT_EQ(qAlpha(image.pixel(40, 50)), 0);
}

TEST_F(PictureFile, IsKnownByItsContentWhateverItIsCalled) {
  EXPECT_FALSE(Picture::of(writeImage("logo.bmp", QSize(9, 9), Qt::red), blackAndBlue).isNull());
}

TEST_F(PictureFile, AVectorFillsItsRoom) {
  const auto path = write("logo.dat",
                          R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 10 10">
                             <rect width="10" height="10" fill="#00ff00"/></svg>)");
  const QImage image = drawn(path, QSize(100, 100));
  EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::green));
  EXPECT_EQ(image.pixelColor(97, 97), QColor(Qt::green));
}

TEST_F(PictureFile, MayBeNamedWithTheSeparatorOfAnotherSystem) {
  writeImage("logo.png", QSize(9, 9), Qt::red);
  const auto path = fromQt(folder.path()) + u"\\logo.png";
  EXPECT_FALSE(Picture::of(path, blackAndBlue).isNull());
}

TEST_F(PictureFile, ThatIsNotAPictureGivesNothingToDraw) {
  EXPECT_TRUE(Picture::of(write("broken.png", "text"), blackAndBlue).isNull());
  EXPECT_TRUE(Picture::of(write("broken.svg", "<svg"), blackAndBlue).isNull());
  EXPECT_TRUE(Picture::of(fromQt(folder.path()), blackAndBlue).isNull());
}

TEST_F(PictureFile, ThatCanBeShownIsLoaded) {
  QtPictureLoader loader;
  EXPECT_NO_THROW(loader.load(writeImage("logo.png", QSize(9, 9), Qt::red)));
  EXPECT_NO_THROW(loader.load(
      write("logo.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 1 1"/>)")));
}

TEST_F(PictureFile, IsJudgedAsInProgramsWithoutWindows) {
  const auto error = [this](const PictureSample& sample) {
    const auto path = write("picture", QByteArray::fromStdString(sample.bytes));
    try {
      QtPictureLoader().load(path);
      return ErrorNumber{};
    } catch (const RunTimeError& raised) {
      return raised.number();
    }
  };
  for (const auto& sample : pictures()) {
    EXPECT_EQ(error(sample), ErrorNumber{}) << sample.name;
  }
  for (const auto& sample : notPictures()) {
    EXPECT_EQ(error(sample), ErrorNumber::InvalidPicture) << sample.name;
  }
}

TEST_F(PictureFile, LeavesTheLimitOfOtherPicturesInTheProgram) {
  const int before = QImageReader::allocationLimit();
  QtPictureLoader().load(writeImage("logo.png", QSize(9, 9), Qt::red));
  EXPECT_EQ(QImageReader::allocationLimit(), before);
}

TEST_F(PictureFile, ThatCannotBeShownIsAnErrorThatNamesFileAndCause) {
  const std::vector<std::pair<std::u16string, std::string>> table{
      {fromQt(folder.filePath("absent.png")), "absent.png cannot be shown: it cannot be read"},
      {write("broken.png", "text"), "broken.png cannot be shown: it is not a picture"},
      {write("broken.svg", "<svg"), "broken.svg cannot be shown: line 1, column 1: unclosed token"},
  };
  for (const auto& [path, message] : table) {
    try {
      QtPictureLoader().load(path);
      ADD_FAILURE() << message;
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), ErrorNumber::InvalidPicture);
      EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
    }
  }
}

}  // namespace
}  // namespace tessara::testing
