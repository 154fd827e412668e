#include "qt/theme/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <cmath>

// A resource of a static library is dropped by the linker unless someone asks for it, outside of any namespace.
static void needResources() {
    Q_INIT_RESOURCE(orvent);
}

namespace orvent::qt {

namespace {

QColor tintOf(QIcon::Mode mode, const QColor& ordinary) {
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
        case QIcon::Disabled:
            return palette.color(QPalette::Disabled, QPalette::ButtonText);
        case QIcon::Selected:
            return palette.color(QPalette::HighlightedText);
        default:
            return ordinary.isValid() ? ordinary : palette.color(QPalette::ButtonText);
    }
}

/// Draws one SVG file; `tinted` ones are monochrome and take their colour from the palette at each painting.
class SvgIconEngine : public QIconEngine {
  public:
    SvgIconEngine(QString path, bool tinted, QColor colour = {})
        : path_(std::move(path)), tinted_(tinted), colour_(std::move(colour)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const double ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        painter->drawPixmap(rect, rendered(rect.size() * ratio, mode));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override { return rendered(size, mode); }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override {
        return rendered(size, mode);  // the size is in device pixels already
    }

    QIconEngine* clone() const override { return new SvgIconEngine(*this); }
    QString key() const override { return QStringLiteral("orvent-svg"); }
    bool isNull() override { return !QFile::exists(path_); }

  private:
    QPixmap rendered(const QSize& size, QIcon::Mode mode) const {
        const QColor tint = tintOf(mode, colour_);
        const QString key =
            QStringLiteral("%1|%2x%3|%4").arg(path_).arg(size.width()).arg(size.height()).arg(tint.rgba());
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap)) {
            return pixmap;
        }
        QFile file(path_);
        if (!file.open(QIODevice::ReadOnly)) {
            return {};
        }
        QByteArray svg = file.readAll();
        if (tinted_) {
            svg.replace("currentColor", tint.name().toLatin1());
        }
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        QSvgRenderer(svg).render(&painter, QRectF(QPointF(), QSizeF(size)));
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    QString path_;
    bool tinted_;
    QColor colour_;  // invalid: that of the text around it
};

}  // namespace

QIcon icon(const QString& name) {
    return icon(name, {});
}

QIcon icon(const QString& name, const QColor& colour) {
    needResources();
    return QIcon(new SvgIconEngine(QStringLiteral(":/orvent/icons/%1.svg").arg(name), true, colour));
}

QIcon programIcon() {
    needResources();
    return QIcon(new SvgIconEngine(QStringLiteral(":/orvent/orvent.svg"), false));
}

}  // namespace orvent::qt
