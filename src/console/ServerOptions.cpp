#include "console/ServerOptions.h"

#include <CLI/CLI.hpp>

#include <iostream>

#include "adapters/files/NativePath.h"
#include "platform/Catalogue.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"

namespace quillon::console {
namespace {

std::string Given(const CLI::App& app, const char* name) {
    const CLI::Option* option = app.get_option(name);
    return option->count() == 0 ? std::string() : option->as<std::string>();
}

std::string Required(const CLI::App& app, const char* name) {
    std::string value = Given(app, name);
    if (value.empty())
        throw Failure(numbers::InvalidCall, std::string("This command needs ") + name);
    return value;
}

// The first line; an empty file is an empty password.
std::string ReadPassword(const std::string& file) {
    std::string line;
    if (file.empty())
        return line;
    if (file == "-")
        std::getline(std::cin, line);
    else
        ThePlatform().files().OpenInput(adapters::FromNative(file))->ReadLine(line);
    if (line.ends_with('\r'))
        line.pop_back();
    return line;
}

} // namespace

void AddServerOptions(CLI::App& app) {
    app.add_option("--server", "The server: HOST, HOST,PORT or HOST\\INSTANCE")->type_name("SERVER");
    app.add_option("--user", "The login; without it the operating system's own")->type_name("NAME");
    app.add_option("--password-file", "A file whose first line is the password; - reads the standard input")
        ->type_name("FILE");
    app.add_option("--database", "The database")->type_name("NAME");
}

void LogIn(const CLI::App& app) {
    g_strServer = Required(app, "--server");
    g_strUser = Given(app, "--user");
    g_strPassword = ReadPassword(Given(app, "--password-file"));
    g_objTrace->SetNote("Logging in to " + g_strServer);
    g_objSQLServer = ThePlatform().catalogue().NewServer();
    g_objSQLServer->SetLoginSecure(g_strUser.empty());
    g_objSQLServer->Connect(g_strServer, g_strUser, g_strPassword);
    g_objTrace->SetNote("");
}

void LogInToDatabase(const CLI::App& app) {
    const std::string database = Required(app, "--database");
    LogIn(app);
    g_strDatabase = g_objSQLServer->DatabaseNamed(database).Name();
}

} // namespace quillon::console
