#include "desktop/Icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <map>

#include "desktop/Theme.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {
namespace {

class SvgEngine : public QIconEngine {
  public:
    SvgEngine(const QString& name, QByteArray picture)
        : m_name(name)
        , m_picture(std::move(picture)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
        const qreal scale = painter->device()->devicePixelRatioF();
        QPixmap picture = pixmap(place.size() * scale, mode, state);
        picture.setDevicePixelRatio(scale);
        painter->drawPixmap(place, picture);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const Theme& theme = Theme::Current();
        const bool isFaint = mode == QIcon::Disabled;
        const QString key = QString("%1 %2x%3 %4 %5")
                                .arg(m_name)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(isFaint)
                                .arg(theme.isDark);
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap))
            return pixmap;
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QByteArray picture = m_picture;
        picture.replace("accentColor", (isFaint ? theme.faint : theme.accent).name().toLatin1());
        picture.replace("currentColor", (isFaint ? theme.border : theme.text).name().toLatin1());
        QPainter painter(&pixmap);
        QSvgRenderer(picture).render(&painter, QRectF(QPointF(), QSizeF(size)));
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }
    QIconEngine* clone() const override { return new SvgEngine(m_name, m_picture); }

  private:
    QString m_name;
    QByteArray m_picture;
};

} // namespace

QIcon IconOf(const std::string& name) {
    static std::map<std::string, QIcon> made;
    const auto [place, isNew] = made.try_emplace(name);
    QFile file(":/icons/" + Text(name) + ".svg");
    if (isNew && !name.empty() && file.open(QIODevice::ReadOnly))
        place->second = QIcon(new SvgEngine(Text(name), file.readAll()));
    return place->second;
}

} // namespace quillon::desktop
