// What a desktop does for its windows and the offscreen platform does not: when a window goes, the one below
// it gets the keyboard back.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace quillon::tests {

class WindowManager : public QObject {
  public:
    WindowManager();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::vector<QPointer<QWidget>> m_windows; // from the lowest to the topmost
};

} // namespace quillon::tests
