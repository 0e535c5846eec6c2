#include "desktop/WindowScript.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include "desktop/Person.h"

namespace quillon::tests {
namespace {

// A menu below another one or in a menu bar waits for nobody; one that has popped up by itself does.
bool WaitsForAPerson(const QWidget& window) {
    if (const auto* menu = qobject_cast<const QMenu*>(&window))
        return menu->parentWidget() == nullptr || menu->parentWidget()->isWindow();
    return window.isModal();
}

std::string Described(const QWidget& window) {
    std::string text = window.objectName().toStdString() + " '" + window.windowTitle().toStdString() + "'";
    if (const auto* box = qobject_cast<const QMessageBox*>(&window))
        text += ": " + box->text().toStdString() + " " + box->informativeText().toStdString();
    return text;
}

void Dismiss(QWidget& window) {
    if (auto* dialog = qobject_cast<QDialog*>(&window))
        dialog->reject();
    window.hide();
}

} // namespace

WindowScript::WindowScript() {
    qApp->installEventFilter(this);
}

WindowScript::~WindowScript() {
    for (const Expected& expected : m_expected)
        ADD_FAILURE() << "never came: " << expected.name.toStdString();
}

void WindowScript::Expect(const QString& name, Visit visit) {
    m_expected.push_back({name, std::move(visit)});
}

void WindowScript::ExpectAndLeave(const QString& name) {
    Expect(name, [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
}

void WindowScript::ExpectMessage(const QString& text, const QString& title,
                                 QMessageBox::StandardButton answer) {
    Expect("message", [=](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.text().toStdString(), text.toStdString());
        EXPECT_EQ(box.windowTitle().toStdString(), title.toStdString());
        QAbstractButton* button = box.button(answer);
        if (button == nullptr)
            throw std::runtime_error("no such button");
        Click(*button);
    });
}

void WindowScript::ExpectFailure(const QString& part) {
    Expect("failureReport", [=](QWidget& window) {
        const QString text = dynamic_cast<QMessageBox&>(window).text();
        EXPECT_TRUE(text.contains(part)) << text.toStdString();
        QTest::keyClick(&window, Qt::Key_Escape);
    });
}

void WindowScript::ExpectFile(const QString& title, const QString& path) {
    Expect("fileDialog", [=](QWidget& window) {
        EXPECT_EQ(window.windowTitle().toStdString(), title.toStdString());
        if (path.isEmpty()) {
            QTest::keyClick(&window, Qt::Key_Escape);
            return;
        }
        auto& name = Find<QLineEdit>("fileNameEdit", window);
        Type(name, path);
        name.completer()->popup()->hide();
        Click(*window.findChild<QDialogButtonBox*>()->buttons().front());
    });
}

void WindowScript::ExpectMenu(const QString& name, const QString& entry) {
    Expect(name, [=](QWidget& window) {
        if (entry.isEmpty())
            QTest::keyClick(&window, Qt::Key_Escape);
        else
            Choose(window, entry);
        window.close();
    });
}

bool WindowScript::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show || !watched->isWidgetType())
        return false;
    const QPointer<QWidget> window = static_cast<QWidget*>(watched);
    if (window->isWindow() && WaitsForAPerson(*window))
        QTimer::singleShot(0, this, [this, window] { Answer(window); });
    return false;
}

void WindowScript::Answer(const QPointer<QWidget>& window) {
    if (!window || !window->isVisible())
        return;
    if (m_expected.empty() || m_expected.front().name != window->objectName()) {
        ADD_FAILURE() << "not expected: " << Described(*window);
        Dismiss(*window);
        return;
    }
    const Expected expected = std::move(m_expected.front());
    m_expected.pop_front();
    try {
        if (!qobject_cast<QMenu*>(window.data()))
            AwaitActive(*window);
        expected.visit(*window);
    } catch (const std::exception& failure) {
        ADD_FAILURE() << expected.name.toStdString() << ": " << failure.what();
    }
    if (window && window->isVisible()) {
        ADD_FAILURE() << "left open: " << Described(*window);
        Dismiss(*window);
    }
}

} // namespace quillon::tests
