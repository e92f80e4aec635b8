#include "AdminCommands.h"

#include "AccountAdministration.h"
#include "ChainAdministration.h"
#include "CommandForms.h"
#include "Console.h"
#include "DecimalText.h"
#include "ErrorText.h"
#include "FileMove.h"
#include "RightsReport.h"
#include "ServerLocation.h"
#include "SessionStart.h"
#include "UserAdministration.h"

#include <QFile>
#include <QJsonDocument>

namespace {

using Work = std::function<Result<QStringList>(Administration& administration, const Options& options)>;

Result<QString> inLines(const Result<QStringList>& lines)
{
    if (!lines)
        return lines.status();
    if (lines->isEmpty())
        return CommandTexts::tr("已是如此，没有变化");
    QStringList printed;
    for (const QString& line : *lines)
        printed << oneLine(line);
    return printed.join(QLatin1Char('\n'));
}

/// A command on a server that is set up.
CommandFunction onServer(const Work& work)
{
    return [work](const Options& options) -> Result<QString> {
        Administration administration;
        if (Status status = administration.open(databaseOf(options)); !status)
            return status;
        return inLines(work(administration, options));
    };
}

/// A command in a file or on a server.
CommandFunction inDatabase(const Work& work)
{
    return [work](const Options& options) -> Result<QString> {
        Administration administration;
        if (Status status = administration.openDatabase(databaseOf(options)); !status)
            return status;
        return inLines(work(administration, options));
    };
}

Result<QString> init(const Options& options)
{
    const Result<QStringList> created = Administration::initialise(databaseOf(options));
    if (!created || !options.flags.contains(Flag::Sample))
        return inLines(created);
    Administration administration;
    if (Status status = administration.open(databaseOf(options)); !status)
        return status;
    const Result<QStringList> written = administration.writeSample(options.securities, {});
    return written ? inLines(*created + *written) : written.status();
}

// The argument is the server, because --database names the source.
Result<QString> moveTo(const Options& options)
{
    if (!ServerLocation::isServer(options.arguments.at(0)))
        return Error::MoveToFile;
    Administration administration;
    if (Status status = administration.open(options.arguments.at(0)); !status)
        return status;
    FileMove move(administration, [](const QString& text) { printLine(stderr, text); });
    return inLines(move.run(databaseOf(options)));
}

Result<QString> migrate(const Options& options)
{
    return inLines(Administration::migrate(databaseOf(options)));
}

Result<NewPassword> passwordOf(const Options& options)
{
    NewPassword password;
    password.isGenerated = options.flags.contains(Flag::GeneratePassword);
    if (!options.flags.contains(Flag::PasswordFromInput))
        return password;
    QFile input;
    if (input.open(stdin, QIODevice::ReadOnly))
        password.given = QString::fromUtf8(input.readLine()).remove(QLatin1Char('\n'));
    return password.given.isEmpty() ? Result<NewPassword>(Error::NoPassword) : password;
}

Result<QStringList> addUser(Administration& administration, const Options& options)
{
    const Result<NewPassword> password = passwordOf(options);
    if (!password)
        return password.status();
    return UserAdministration(administration).addUser({ options.arguments.at(0), options.arguments.at(1) }, *password);
}

Result<QStringList> grant(Administration& administration, const Options& options)
{
    return UserAdministration(administration)
        .grant(options.arguments.at(0), options.arguments.at(1), options.arguments.mid(2),
            options.flags.contains(Flag::Review));
}

Result<QStringList> revoke(Administration& administration, const Options& options)
{
    UserAdministration users(administration);
    if (options.arguments.size() == 1)
        return users.revokeUser(options.arguments.at(0));
    return users.revoke(options.arguments.at(0), options.arguments.at(1), options.arguments.mid(2));
}

/// The arguments from `first` on, "name=text" each.
Result<QMap<QString, QString>> itemsOf(const Options& options, int first, const QStringList& names)
{
    QMap<QString, QString> items;
    const QStringList arguments = options.arguments.mid(first);
    for (const QString& argument : arguments) {
        const QString name = argument.section(QLatin1Char('='), 0, 0);
        if (!argument.contains(QLatin1Char('=')) || !names.contains(name) || items.contains(name))
            return { Error::MalformedItem, { argument, listText(names) } };
        items.insert(name, argument.section(QLatin1Char('='), 1));
    }
    return items;
}

Result<QStringList> addAccount(Administration& administration, const Options& options)
{
    const auto items = itemsOf(options, 1, AccountAdministration::accountItems());
    if (!items)
        return items.status();
    return AccountAdministration(administration).addAccount(options.arguments.at(0), *items);
}

/// The digits of a number like "50万", which is typed as in the form; any other text as it is.
QString digitsOf(const QString& text, int decimals, const NumberUnit& unit)
{
    constexpr double Largest = 1e15;
    const Result<double> number = typedNumber(text, { 0, Largest, decimals }, unit);
    return number ? decimalText(*number, decimals, false) : text;
}

Result<QStringList> setLimits(Administration& administration, const Options& options)
{
    auto items = itemsOf(options, 1, AccountAdministration::limitItems());
    if (!items)
        return items.status();
    for (QString& limit : *items)
        limit = digitsOf(limit, 0, {});
    return AccountAdministration(administration).setLimits(options.arguments.at(0), *items);
}

Result<QStringList> setCash(Administration& administration, const Options& options)
{
    NumberUnit yuan;
    yuan.name = QStringLiteral("元");
    return AccountAdministration(administration)
        .setCash(options.arguments.at(0), digitsOf(options.arguments.at(1), 2, yuan));
}

Result<QStringList> setChain(Administration& administration, const Options& options)
{
    const auto items = itemsOf(options, 2, ChainAdministration::items());
    if (!items)
        return items.status();
    return ChainAdministration(administration).setChain(options.arguments.at(0), options.arguments.at(1), *items);
}

Result<QString> list(const Options& options)
{
    Administration administration;
    if (Status status = administration.openDatabase(databaseOf(options)); !status)
        return status;
    const Result<QJsonObject> report = RightsReport::json(administration);
    if (!report)
        return report.status();
    if (options.flags.contains(Flag::Json))
        return QString::fromUtf8(QJsonDocument(*report).toJson());
    return inLines(RightsReport::lines(*report));
}

} // namespace

QMap<QString, CommandFunction> adminCommands()
{
    return {
        { QStringLiteral("admin init"), init },
        { QStringLiteral("admin migrate"), migrate },
        { QStringLiteral("admin add-user"), onServer(addUser) },
        { QStringLiteral("admin grant"), onServer(grant) },
        { QStringLiteral("admin revoke"), onServer(revoke) },
        { QStringLiteral("admin add-account"), inDatabase(addAccount) },
        { QStringLiteral("admin set-cash"), inDatabase(setCash) },
        { QStringLiteral("admin set-limits"), inDatabase(setLimits) },
        { QStringLiteral("admin set-chain"), inDatabase(setChain) },
        { QStringLiteral("admin list"), list },
        { QStringLiteral("move-to"), moveTo },
    };
}
