#include "qt/views/PageIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include "forms/Pages.h"

namespace brenwick {
namespace {

// Ordered by the numbers of the pages; numbers without a page have no icon.
constexpr const char* kIcons[kPageCount] = {
    "general", "spoken",       "text",    "voices", "buddynames", "ignore", "gender", "connections",
    "words",   "savesettings", "website", "log",    "repeat",     "",       "about",  "",
};

// Recolours a picture in a selected line: the pictures have one colour, which would vanish there.
class PageIconEngine : public QIconEngine {
 public:
  explicit PageIconEngine(QIcon icon) : icon_(std::move(icon)) {}

  QIconEngine* clone() const override { return new PageIconEngine(icon_); }

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
    const QSize size = place.size() * painter->device()->devicePixelRatio();
    painter->drawPixmap(place, pixmap(size, mode, QIcon::Off));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }

  // In pixels of the screen, as all icons are asked for.
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override {
    const QIcon::Mode drawn = mode == QIcon::Selected ? QIcon::Normal : mode;
    QPixmap picture = icon_.pixmap(size, 1, drawn);
    if (mode == QIcon::Selected) {
      QPainter painter(&picture);
      painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
      painter.fillRect(picture.rect(), QGuiApplication::palette().highlightedText());
    }
    return picture;
  }

 private:
  QIcon icon_;
};

}  // namespace

QIcon PageIcon(int page) {
  const QString name = kIcons[page];
  if (name.isEmpty()) return {};
  return QIcon(new PageIconEngine(QIcon(QString(":/icons/pages/%1.svg").arg(name))));
}

}  // namespace brenwick
