// A label that shortens a text that does not fit, and then tells it whole in its tool tip.
#pragma once

#include <QLabel>

namespace quillon::desktop {

class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(Qt::TextElideMode mode = Qt::ElideRight);
    void SetFullText(const QString& text);
    const QString& FullText() const { return m_text; }
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Elide();

    QString m_text;
    Qt::TextElideMode m_mode;
};

} // namespace quillon::desktop
