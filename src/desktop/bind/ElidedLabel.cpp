#include "desktop/bind/ElidedLabel.h"

#include <QResizeEvent>

namespace quillon::desktop {

ElidedLabel::ElidedLabel(Qt::TextElideMode mode)
    : m_mode(mode) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::SetFullText(const QString& text) {
    m_text = text;
    Elide();
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 4, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    Elide();
}

void ElidedLabel::Elide() {
    const QString shown = fontMetrics().elidedText(m_text, m_mode, contentsRect().width());
    setText(shown);
    setToolTip(shown == m_text ? QString() : m_text);
}

} // namespace quillon::desktop
