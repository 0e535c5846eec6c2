// Answers the windows that wait for a person: modal screens, boxes, dialogs, menus at the pointer.
//
// Each of them turns an event loop of its own until it is answered, so what the person does there is told
// beforehand. The script answers them in the order in which it expects them, fails the test on any other and
// on those that never come, and takes away what an answer has left open, so that no test hangs.
#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QString>

#include <deque>
#include <functional>

class QWidget;

namespace quillon::tests {

class WindowScript : public QObject {
  public:
    using Visit = std::function<void(QWidget& window)>;

    WindowScript();
    ~WindowScript() override;

    // By object name. The visit begins when the window is active, and has closed it when it ends.
    void Expect(const QString& name, Visit visit);
    // The window is of no interest; Escape leaves it.
    void ExpectAndLeave(const QString& name);
    // A box with this text and title, answered by one of its buttons.
    void ExpectMessage(const QString& text, const QString& title,
                       QMessageBox::StandardButton answer = QMessageBox::Ok);
    // A failure report whose description contains the text.
    void ExpectFailure(const QString& part);
    // A file dialog of this title; an empty path cancels it.
    void ExpectFile(const QString& title, const QString& path);
    // A menu at the pointer; the entry by object name is chosen, none by an empty name.
    void ExpectMenu(const QString& name, const QString& entry);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Expected {
        QString name;
        Visit visit;
    };

    void Answer(const QPointer<QWidget>& window);

    std::deque<Expected> m_expected;
};

} // namespace quillon::tests
