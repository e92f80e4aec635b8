#include "Rulebook.h"

#include "CodeWords.h"
#include "ErrorText.h"

#include <QDebug>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

namespace {

const QString Headings = QStringLiteral("exchange,board,flag,rule,value,first,last,source");
const QStringList RuleNames{ QStringLiteral("limit"), QStringLiteral("lot"), QStringLiteral("step"),
    QStringLiteral("tick") };
constexpr qint64 MostBytes = 1048576;
constexpr double LargestLimit = 1000; // thousandths
constexpr double LargestValue = 1000000;

enum Cell { Exchange, Board, Flag, RuleName, Value, First, Last, Source };

QString keyOf(const QString& exchange, const QString& subType)
{
    return exchange + QLatin1Char('|') + subType;
}

Result<QString> codeOf(const CodeWords& words, const QString& heading, const QString& cell)
{
    const QString code = words.code(cell);
    if (code.isNull())
        return { Error::UnknownCode, { heading, cell } };
    return code;
}

/// The value of a rule; absent for another text.
std::optional<double> valueOf(TradeRule rule, QString text)
{
    const bool isLimit = rule == TradeRule::Limit;
    if (isLimit && text == QLatin1String("none"))
        return 0;
    if (isLimit && !text.endsWith(QLatin1Char('%')))
        return std::nullopt;
    if (isLimit)
        text.chop(1);
    bool isNumber = false;
    const double number = text.toDouble(&isNumber) * (isLimit ? 10 : 1);
    const bool isWhole = std::floor(number) == number;
    const bool isRight = isNumber && number > 0 && number <= (isLimit ? LargestLimit : LargestValue)
        && (isWhole || rule == TradeRule::Tick);
    return isRight ? std::optional<double>(number) : std::nullopt;
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(MostBytes) : QByteArray();
}

Rulebook readOr(const QString& path, const Rulebook& other)
{
    const Result<Rulebook> read = Rulebook::read(contentsOf(path));
    if (!read)
        qWarning().noquote() << "Rulebook" << path << errorText(read.status());
    return read.valueOr(other);
}

} // namespace

const Rulebook& Rulebook::builtIn()
{
    static const Rulebook book = readOr(QStringLiteral(":/market/rulebook.csv"), Rulebook());
    return book;
}

const Rulebook& Rulebook::present()
{
    static const Rulebook book = [] {
        const QString path =
            QStandardPaths::locate(QStandardPaths::GenericDataLocation, QStringLiteral("plandesk/rulebook.csv"));
        return path.isEmpty() ? builtIn() : readOr(path, builtIn());
    }();
    return book;
}

QString Rulebook::headings()
{
    return Headings;
}

Result<Rulebook> Rulebook::read(const QByteArray& csv)
{
    const QStringList lines = QString::fromUtf8(csv).split(QLatin1Char('\n'));
    if (lines.constFirst().trimmed() != Headings)
        return { Error::NoRulebookHeadings, { Headings } };
    Rulebook book;
    for (int i = 1; i < lines.size(); ++i) {
        const QString line = lines.at(i).trimmed();
        if (line.isEmpty())
            continue;
        if (Status status = book.add(line); !status)
            return Status(Error::BadRulebookLine, { QString::number(i + 1) }, status);
    }
    return book;
}

Status Rulebook::add(const QString& line)
{
    const QStringList cells = line.split(QLatin1Char(','));
    if (cells.size() != Source + 1)
        return { Error::RulebookColumns, { QString::number(cells.size()) } };
    const Result<QString> exchange = codeOf(CodeWords::exchanges(), QStringLiteral("exchange"), cells.at(Exchange));
    if (!exchange)
        return exchange.status();
    const Result<QString> subType = codeOf(CodeWords::securitySubTypes(), QStringLiteral("board"), cells.at(Board));
    if (!subType)
        return subType.status();
    const Result<QString> flag = cells.at(Flag).isEmpty()
        ? QString()
        : codeOf(CodeWords::specialTreatments(), QStringLiteral("flag"), cells.at(Flag));
    if (!flag)
        return flag.status();
    const int rule = RuleNames.indexOf(cells.at(RuleName));
    if (rule < 0)
        return { Error::UnknownCode, { QStringLiteral("rule"), cells.at(RuleName) } };
    const Result<Period> period = periodOf(static_cast<TradeRule>(rule), cells);
    if (!period)
        return period.status();
    return add({ *flag, static_cast<TradeRule>(rule), { *period } }, m_boards[keyOf(*exchange, *subType)]);
}

Result<Rulebook::Period> Rulebook::periodOf(TradeRule rule, const QStringList& cells)
{
    const auto value = valueOf(rule, cells.at(Value));
    if (!value)
        return { Error::UnknownCode, { QStringLiteral("value"), cells.at(Value) } };
    const Period period{ QDate::fromString(cells.at(First), Qt::ISODate),
        QDate::fromString(cells.at(Last), Qt::ISODate), *value };
    if (!period.first.isValid())
        return { Error::NotADate, { cells.at(First) } };
    if (!cells.at(Last).isEmpty() && (!period.last.isValid() || period.last < period.first))
        return { Error::NotADate, { cells.at(Last) } };
    if (cells.at(Source).isEmpty())
        return { Error::CellMissing, { QStringLiteral("source") } };
    return period;
}

/// Adds a series of one period.
Status Rulebook::add(const Series& added, QVector<Series>& board)
{
    const auto known = std::find_if(board.begin(), board.end(),
        [&added](const Series& series) { return series.rule == added.rule && series.flag == added.flag; });
    if (known == board.end()) {
        board.append(added);
        return {};
    }
    const Period& period = added.periods.constFirst();
    const QDate next = known->periods.constLast().last.addDays(1);
    if (period.first != next)
        return { Error::RulebookGap, { period.first.toString(Qt::ISODate), next.toString(Qt::ISODate) } };
    known->periods << period;
    return {};
}

const Rulebook::Series* Rulebook::find(const Security& security, TradeRule rule) const
{
    const auto board = m_boards.constFind(keyOf(security.exchange, security.subType));
    if (board == m_boards.cend())
        return nullptr;
    const Series* usual = nullptr;
    for (const Series& series : *board) {
        if (series.rule == rule && series.flag == security.stFlag)
            return &series;
        if (series.rule == rule && series.flag.isEmpty())
            usual = &series;
    }
    return usual;
}

const Rulebook::Period* Rulebook::on(const Series& series, const QDate& day)
{
    for (const Period& period : series.periods) {
        if (day >= period.first && (!period.last.isValid() || day <= period.last))
            return &period;
    }
    return nullptr;
}

std::optional<double> Rulebook::value(const Security& security, TradeRule rule, const QDate& day) const
{
    const Series* const series = find(security, rule);
    const Period* const period = series ? on(*series, day) : nullptr;
    return period ? std::optional<double>(period->value) : std::nullopt;
}

// Its value is one that the board has at some time: it may have been imported before a change.
const Rulebook::Series* Rulebook::followed(const Security& security, TradeRule rule, double own) const
{
    const Series* const series = find(security, rule);
    const auto isOwn = [own](const Period& period) { return period.value == own; };
    const bool follows = series && own > 0 && std::any_of(series->periods.cbegin(), series->periods.cend(), isOwn);
    return follows ? series : nullptr;
}

Security Rulebook::onDay(const Security& security, const QDate& day) const
{
    Security changed = security;
    const auto follow = [&](TradeRule rule, int& own) {
        const Series* const series = followed(security, rule, own);
        if (const Period* const period = series ? on(*series, day) : nullptr)
            own = static_cast<int>(period->value);
    };
    follow(TradeRule::Limit, changed.limitPerMille);
    follow(TradeRule::Step, changed.quantityStep);
    return changed;
}

QVector<Rulebook::Change> Rulebook::changes(const Security& security, const QDate& first, const QDate& last) const
{
    QVector<Change> found;
    for (int rule = 0; rule < RuleNames.size(); ++rule) {
        const auto kind = static_cast<TradeRule>(rule);
        const Series* const series = kind == TradeRule::Limit ? followed(security, kind, security.limitPerMille)
            : kind == TradeRule::Step                         ? followed(security, kind, security.quantityStep)
                                                              : find(security, kind);
        for (int i = 1; series && i < series->periods.size(); ++i) {
            const Period& before = series->periods.at(i - 1);
            const Period& after = series->periods.at(i);
            if (after.first > first && after.first <= last && before.value != after.value)
                found << Change{ kind, after.first, before.value, after.value };
        }
    }
    return found;
}
