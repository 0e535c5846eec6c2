// The program with its windows, offscreen, and a person at them.
#pragma once

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QTableView>

#include "desktop/Person.h"
#include "desktop/QtFrontEnd.h"
#include "desktop/WindowScript.h"
#include "desktop/bind/Act.h"
#include "practice/support/ServerProcess.h"
#include "program/Program.h"
#include "support/OwnHome.h"

namespace quillon::tests {

// The program without a server: its folder, its settings and its windows are this test's own.
class DesktopFixture : public testing::Test {
  protected:
    DesktopFixture();
    ~DesktopFixture() override;

    OwnHome home;
    desktop::QtFrontEnd frontEnd;
    Program program{frontEnd};
    WindowScript windows;
};

// With a practice server and its sample database.
class ServedFixture : public DesktopFixture {
  protected:
    // Starts the program; the person logs in.
    void Start();
    // Fills the login in, up to the button.
    void FillLogin(QWidget& login, const QString& password);
    void PickDatabase(const QString& name = "Sales");
    // Runs the installation of all that the profile has, through its screen.
    void Install();

    QString ServerName() const { return "127.0.0.1," + QString::number(server.Port()); }
    QString Password() const { return QString::fromStdString(server.Password()); }
    QWidget& Main() const { return Window("frmMain"); }
    QTableView& GridOf(const char* name) const { return Find<QTableView>(name, Main()); }
    QTableView& Tables() const { return GridOf("grxTables"); }
    QTableView& Fields() const { return GridOf("grxFields"); }
    QTableView& Triggers() const { return GridOf("grxTriggers"); }

    // Columns of the grid of tables.
    enum { Name, Owner, Insert, Update, Delete, Audited };

    practice::testing::ServerProcess server{QUILLON_BIN_DIR, {}, {"--sample"}};
};

} // namespace quillon::tests
