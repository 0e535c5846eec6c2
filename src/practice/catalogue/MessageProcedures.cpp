// sp_addmessage, sp_altermessage, sp_dropmessage: the messages that users add for RAISERROR and
// FORMATMESSAGE.
#include "practice/catalogue/NativeParts.h"
#include "practice/catalogue/ProcedureTexts.h"
#include "practice/storage/UserMessages.h"
#include "practice/values/Convert.h"
#include "practice/values/Languages.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

constexpr int firstUserMessage = 50001;
constexpr int highestSeverity = 25;

#define FOR_ADMINISTRATORS                                                                                   \
    "SET NOCOUNT ON\n"                                                                                       \
    "IF IS_SRVROLEMEMBER('sysadmin') = 0\n"                                                                  \
    "BEGIN\n"                                                                                                \
    "    EXEC sys.q_raise 15247\n"                                                                           \
    "    RETURN 1\n"                                                                                         \
    "END\n"

constexpr SystemProcedure rows[] = {
    {"sp_addmessage", R"(CREATE PROCEDURE sys.sp_addmessage @msgnum int = NULL, @severity smallint = NULL,
    @msgtext nvarchar(255) = NULL, @lang sysname = NULL, @with_log varchar(5) = 'FALSE', @replace varchar(7) = NULL AS
)" FOR_ADMINISTRATORS R"(SET @lang = ISNULL(@lang, @@LANGUAGE)
EXEC sys.q_addmessage @msgnum, @severity, @msgtext, @lang, @with_log, @replace
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_altermessage", R"(CREATE PROCEDURE sys.sp_altermessage @message_id int, @parameter sysname,
    @parameter_value varchar(5) AS
)" FOR_ADMINISTRATORS R"(EXEC sys.q_altermessage @message_id, @parameter, @parameter_value
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
    {"sp_dropmessage", R"(CREATE PROCEDURE sys.sp_dropmessage @msgnum int = NULL, @lang sysname = NULL AS
)" FOR_ADMINISTRATORS R"(SET @lang = ISNULL(@lang, @@LANGUAGE)
EXEC sys.q_dropmessage @msgnum, @lang
IF @@ERROR <> 0 RETURN 1
RETURN 0
)"},
};

int IntegerOf(const Datum& value) {
    return static_cast<int>(Convert(value, SimpleType(TypeId::Int)).Integer());
}

const Language& LanguageNamed(const std::string& name) {
    const Language* language = FindLanguage(name);
    if (language == nullptr)
        throw SqlError(15033, {name});
    return *language;
}

bool TrueOrFalse(const std::string& word, int errorNumber) {
    if (!SameName(word, "true") && !SameName(word, "false"))
        throw SqlError(errorNumber);
    return SameName(word, "true");
}

[[noreturn]] void NoSuchMessage(int number) {
    throw SqlError(15179, {std::to_string(number)});
}

// A version in another language follows the one in English, whose severity and log it has.
void FollowEnglish(NativeHost& host, UserMessage& message, const Language& language) {
    const auto english = FindUserMessage(host.Store().Connection(), message.number, usEnglishMessages);
    if (!english)
        throw SqlError(15279, {language.name});
    if (english->severity != message.severity)
        throw SqlError(15304, {language.name, std::to_string(english->severity)});
    if (message.logged)
        host.Inform(15042, MessageText(15042));
    message.logged = english->logged;
}

} // namespace

std::span<const SystemProcedure> MessageProcedures() {
    return rows;
}

// q_addmessage number, severity, text, language, TRUE or FALSE, REPLACE or nothing
int AddMessage(NativeHost& host, std::span<const Datum> arguments) {
    if (arguments[0].IsNull() || arguments[1].IsNull() || arguments[2].IsNull())
        throw SqlError(15071);
    UserMessage message;
    message.number = IntegerOf(arguments[0]);
    message.severity = IntegerOf(arguments[1]);
    message.text = TextArgument(arguments, 2);
    if (message.number < firstUserMessage)
        throw SqlError(15040);
    if (message.severity < 1 || message.severity > highestSeverity)
        throw SqlError(15041);
    message.logged = TrueOrFalse(TextArgument(arguments, 4), 15271);
    const Language& language = LanguageNamed(TextArgument(arguments, 3));
    message.language = language.messages;
    sqlite3* connection = host.Store().Connection();
    const bool isThere = FindUserMessage(connection, message.number, message.language).has_value();
    const std::string replace = TextArgument(arguments, 5);
    if ((isThere || !replace.empty()) && !SameName(replace, "replace"))
        throw SqlError(15043);
    if (message.language != usEnglishMessages)
        FollowEnglish(host, message, language);
    PutUserMessage(connection, message);
    return 0;
}

// q_altermessage number, WITH_LOG, TRUE or FALSE
int AlterMessage(NativeHost& host, std::span<const Datum> arguments) {
    if (!SameName(TextArgument(arguments, 1), "WITH_LOG"))
        throw SqlError(15176);
    const bool logged = TrueOrFalse(TextArgument(arguments, 2), 15277);
    const int number = arguments[0].IsNull() ? 0 : IntegerOf(arguments[0]);
    if (number < firstUserMessage && FindMessage(number) != nullptr)
        throw SqlError::NotSupported("sp_altermessage for messages of the system");
    auto message = FindUserMessage(host.Store().Connection(), number, usEnglishMessages);
    if (!message)
        NoSuchMessage(number);
    message->logged = logged;
    PutUserMessage(host.Store().Connection(), *message);
    return 0;
}

// q_dropmessage number, language or ALL
int DropMessage(NativeHost& host, std::span<const Datum> arguments) {
    if (arguments[0].IsNull())
        throw SqlError(15177);
    const int number = IntegerOf(arguments[0]);
    if (number < firstUserMessage)
        throw SqlError(15178);
    sqlite3* connection = host.Store().Connection();
    const std::string name = TextArgument(arguments, 1);
    const int versions = CountUserMessages(connection, number);
    if (SameName(name, "all")) {
        if (versions == 0)
            NoSuchMessage(number);
        EraseUserMessages(connection, number);
        return 0;
    }
    const int language = LanguageNamed(name).messages;
    if (!FindUserMessage(connection, number, language))
        NoSuchMessage(number);
    if (language == usEnglishMessages && versions > 1)
        throw SqlError(15280);
    EraseUserMessage(connection, number, language);
    return 0;
}

} // namespace quillon::practice
