#include "desktop/Icons.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include "desktop/Theme.h"
#include "desktop/bind/Text.h"

namespace quillon::desktop {
namespace {

class SvgEngine : public QIconEngine {
  public:
    explicit SvgEngine(QByteArray picture)
        : m_picture(std::move(picture)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        const Theme& theme = Theme::Current();
        QByteArray picture = m_picture;
        const bool isFaint = mode == QIcon::Disabled;
        picture.replace("accentColor", (isFaint ? theme.faint : theme.accent).name().toLatin1());
        picture.replace("currentColor", (isFaint ? theme.border : theme.text).name().toLatin1());
        QSvgRenderer(picture).render(painter, QRectF(place));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new SvgEngine(m_picture); }

  private:
    QByteArray m_picture;
};

} // namespace

QIcon IconOf(const std::string& name) {
    QFile file(":/icons/" + Text(name) + ".svg");
    if (name.empty() || !file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new SvgEngine(file.readAll()));
}

} // namespace quillon::desktop
