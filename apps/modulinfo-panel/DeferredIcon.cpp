#include "DeferredIcon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <utility>

namespace tessara {
namespace {

class DeferredIcon : public QIconEngine {
 public:
  explicit DeferredIcon(std::function<QIcon()> make) : make_(std::move(make)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    icon().paint(painter, rect, Qt::AlignCenter, mode, state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return icon().pixmap(size, 1.0, mode, state);
  }
  QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return icon().actualSize(size, mode, state);
  }
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
    return icon().availableSizes(mode, state);
  }
  [[nodiscard]] QIconEngine* clone() const override { return new DeferredIcon(*this); }

 private:
  const QIcon& icon() {
    if (icon_.isNull()) {
      icon_ = make_();
    }
    return icon_;
  }

  std::function<QIcon()> make_;
  QIcon icon_;
};

}  // namespace

QIcon deferredIcon(std::function<QIcon()> make) {
  return QIcon(new DeferredIcon(std::move(make)));
}

}  // namespace tessara
