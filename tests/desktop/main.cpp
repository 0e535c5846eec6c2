// One application for all cases of a run. It draws offscreen unless the caller names another platform, and
// what windows remember goes to a folder that ends with the run.
#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>

#include "desktop/Theme.h"
#include "desktop/WindowManager.h"
#include "support/TemporaryFolder.h"

namespace quillon::tests {
namespace {

void RememberElsewhere() {
    static const TemporaryFolder folder; // made before the first settings, so it ends after them
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QString::fromStdString(folder.path().string()));
}

} // namespace
} // namespace quillon::tests

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    quillon::tests::RememberElsewhere();
    const quillon::tests::WindowManager manager;
    quillon::desktop::Theme::Apply(application, quillon::desktop::Theme::Choice::Light);
    return RUN_ALL_TESTS();
}
