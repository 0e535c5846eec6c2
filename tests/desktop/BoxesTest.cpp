#include "desktop/DesktopFixture.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include "platform/Failure.h"
#include "platform/Platform.h"

namespace quillon::tests {
namespace {

using Boxes = DesktopFixture;
using Standard = QMessageBox::StandardButton;

struct Answered {
    Buttons buttons;
    Standard button;
    Answer answer;
};

TEST_F(Boxes, EachButtonIsItsAnswer) {
    const Answered cases[] = {
        {Buttons::Ok, QMessageBox::Ok, Answer::Ok},
        {Buttons::OkCancel, QMessageBox::Ok, Answer::Ok},
        {Buttons::OkCancel, QMessageBox::Cancel, Answer::Cancel},
        {Buttons::YesNo, QMessageBox::Yes, Answer::Yes},
        {Buttons::YesNo, QMessageBox::No, Answer::No},
        {Buttons::YesNoCancel, QMessageBox::Yes, Answer::Yes},
        {Buttons::YesNoCancel, QMessageBox::No, Answer::No},
        {Buttons::YesNoCancel, QMessageBox::Cancel, Answer::Cancel},
        {Buttons::AbortRetryIgnore, QMessageBox::Abort, Answer::Abort},
        {Buttons::AbortRetryIgnore, QMessageBox::Retry, Answer::Retry},
        {Buttons::AbortRetryIgnore, QMessageBox::Ignore, Answer::Ignore},
        {Buttons::RetryCancel, QMessageBox::Retry, Answer::Retry},
        {Buttons::RetryCancel, QMessageBox::Cancel, Answer::Cancel},
    };
    for (const Answered& each : cases) {
        windows.ExpectMessage("Go on?\n\nReally?", "Question", each.button);
        EXPECT_EQ(frontEnd.Message("Go on?\r\n\r\nReally?", "Question", Icon::Question, each.buttons),
                  each.answer)
            << int(each.buttons) << " " << each.button;
    }
}

// Escape and the corner are the most cautious answer that the box offers.
TEST_F(Boxes, LeavingABoxIsTheCautiousAnswer) {
    const std::pair<Buttons, Answer> cases[] = {
        {Buttons::Ok, Answer::Ok},
        {Buttons::OkCancel, Answer::Cancel},
        {Buttons::YesNo, Answer::No},
        {Buttons::YesNoCancel, Answer::Cancel},
        {Buttons::AbortRetryIgnore, Answer::Abort},
        {Buttons::RetryCancel, Answer::Cancel},
    };
    for (const auto& [buttons, answer] : cases) {
        windows.Expect("message", [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(frontEnd.Message("Text", "Title", Icon::Warning, buttons), answer) << int(buttons);
        windows.Expect("message", [](QWidget& box) { box.close(); });
        EXPECT_EQ(frontEnd.Message("Text", "Title", Icon::None, buttons), answer) << int(buttons);
    }
}

TEST_F(Boxes, TextIsShownAsItStands) {
    windows.ExpectMessage("<b>1 < 2</b> & so on", "R&D");
    frontEnd.Message("<b>1 < 2</b> & so on", "R&D", Icon::Information, Buttons::Ok);
}

TEST_F(Boxes, AFailureTellsWhatWhereAndItsNumber) {
    FailureReport report;
    report.Description = "Division by zero";
    report.Number = 11;
    report.Note = "Attempting the impossible";
    report.Procedures = {"frmMain.Process", "frmTemplate.Run"};
    frontEnd.SetPointer(Pointer::Hourglass);
    windows.Expect("failureReport", [this](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.text(), "Division by zero");
        EXPECT_TRUE(box.informativeText().contains("11"));
        EXPECT_TRUE(box.informativeText().contains("Attempting the impossible"));
        const QString where = box.detailedText();
        EXPECT_LT(where.indexOf("frmMain.Process"), where.indexOf("frmTemplate.Run"));
        EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Default); // one can aim at the button
        QTest::keyClick(&box, Qt::Key_Return);
    });
    frontEnd.ReportFailure(report);
    EXPECT_EQ(frontEnd.CurrentPointer(), Pointer::Hourglass);
    frontEnd.SetPointer(Pointer::Default);
}

// What no procedure of the system has caught is told too, and the window lives on.
TEST_F(Boxes, AFailureOutsideTheSystemIsReported) {
    windows.ExpectFailure("Nothing there");
    desktop::Act([] { throw Failure(53, "Nothing there"); });
    windows.ExpectFailure("foreign");
    desktop::Act([] { throw std::runtime_error("foreign"); });
}

TEST_F(Boxes, AFileIsChosenInTheSystemsForm) {
    home.folder.Write("app/one.qlnx", "x");
    FileDialog dialog{.Title = "Open it",
                      .Save = false,
                      .FileName = {},
                      .Filter = "Profiles (*.qlnx)|*.qlnx|All|*.*|",
                      .FilterIndex = 2,
                      .DefaultExtension = "qlnx"};
    const QString path = QString::fromStdString((home.folder.path() / "app/one.qlnx").string());
    windows.ExpectFile("Open it", path);
    EXPECT_EQ(frontEnd.ChooseFile(dialog), home.folder.SystemPath("app/one.qlnx"));
    windows.ExpectFile("Open it", {});
    EXPECT_EQ(frontEnd.ChooseFile(dialog), std::nullopt);
    windows.Expect("fileDialog", [](QWidget& window) {
        auto& shown = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(shown.nameFilters(), (QStringList{"Profiles (*.qlnx)", "All (*)"}));
        EXPECT_EQ(shown.selectedNameFilter(), "All (*)");
        shown.reject();
    });
    frontEnd.ChooseFile(dialog);
}

TEST_F(Boxes, ASavedFileGetsItsEndingAndAsksBeforeItReplaces) {
    home.folder.Write("app/old.sql", "x");
    const FileDialog dialog{.Title = "Save it",
                            .Save = true,
                            .FileName = {},
                            .Filter = "SQL|*.sql|",
                            .FilterIndex = 1,
                            .DefaultExtension = "sql"};
    const QString folder = QString::fromStdString((home.folder.path() / "app").string());
    windows.ExpectFile("Save it", folder + "/new");
    EXPECT_EQ(frontEnd.ChooseFile(dialog), home.folder.SystemPath("app/new.sql"));
    windows.Expect("fileDialog", [&](QWidget& window) {
        windows.ExpectAndLeave(""); // the dialog's own question
        auto& name = Find<QLineEdit>("fileNameEdit", window);
        Type(name, folder + "/old.sql");
        QTest::keyClick(&name, Qt::Key_Return);
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_EQ(frontEnd.ChooseFile(dialog), std::nullopt);
}

TEST_F(Boxes, ATextIsAsked) {
    const auto answer = [this](Qt::Key key) {
        windows.Expect("question", [key](QWidget& window) {
            auto& line = *window.findChild<QLineEdit*>();
            EXPECT_EQ(line.text(), "before");
            Type(line, "after");
            QTest::keyClick(&line, key);
        });
        return frontEnd.AskText("Name?", "Title", "before");
    };
    EXPECT_EQ(answer(Qt::Key_Return), "after");
    EXPECT_EQ(answer(Qt::Key_Escape), "");
}

TEST_F(Boxes, AProgramThatIsNotThereIsAFailureOfItsOwn) {
    try {
        frontEnd.StartProgram("/nowhere/at-all --flag", WindowStyle::Normal);
        FAIL() << "it started";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), 53);
    }
}

TEST_F(Boxes, ThePointerStandsAsItWasSet) {
    frontEnd.SetPointer(Pointer::Hourglass);
    frontEnd.SetPointer(Pointer::Hourglass);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
    frontEnd.SetPointer(Pointer::Default);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace
} // namespace quillon::tests
