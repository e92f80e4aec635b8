#include "ErrorText.h"
#include "Kelvo_Values.h"
#include "MasterImporters.h"
#include "Orlo_Values.h"

#include <QRegularExpression>

#include <cmath>

using namespace TransferForms;

namespace {

constexpr int MostDecimals = 6;
constexpr double LargestCount = 1000000;
constexpr int DecimalsOfLimit = 3;

/// The exchange of a symbol's market; null if there is none.
QString exchangeOf(const QString& symbol)
{
    static const QRegularExpression form(QStringLiteral("\\A[A-Z0-9]{1,16}\\.(SH|SZ|BJ|HK)\\z"));
    const QRegularExpressionMatch match = form.match(symbol);
    return match.hasMatch() ? CodeWords::exchanges().code(match.captured(1)) : QString();
}

int perMille(ImportRow& row)
{
    const QString text = row.neededText(SecurityColumn::Limit);
    if (text == QStringLiteral("无") || text.compare(QLatin1String("none"), Qt::CaseInsensitive) == 0)
        return 0;
    NumberUnit share;
    share.isRatio = true;
    const auto ratio = row.number(SecurityColumn::Limit, { 0, 1, DecimalsOfLimit }, share);
    return static_cast<int>(std::lround(1000 * ratio.value_or(0)));
}

QString limitText(const Security& security)
{
    if (security.limitPerMille == 0)
        return captionText(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "无")));
    return QString::number(security.limitPerMille / 10.0) + QLatin1Char('%');
}

/// What differs, a line each.
QStringList differences(const Security& before, const Security& after)
{
    QStringList lines;
    const auto note = [&](int column, const QString& from, const QString& to) {
        if (from != to)
            lines << ImportTexts::tr("证券%1：%2由“%3”改为“%4”")
                         .arg(after.symbol, TransferForms::securities().columns.at(column).name(), from, to);
    };
    const auto text = [](int number) { return QString::number(number); };
    const auto noteCode = [&](int column, const CodeWords& words, const QString& from, const QString& to) {
        note(column, captionText(words.word(from)), captionText(words.word(to)));
    };
    note(SecurityColumn::Name, before.name, after.name);
    noteCode(SecurityColumn::Type, CodeWords::securityTypes(), before.type, after.type);
    noteCode(SecurityColumn::SubType, CodeWords::securitySubTypes(), before.subType, after.subType);
    note(SecurityColumn::Decimals, text(before.pricePrecision), text(after.pricePrecision));
    note(SecurityColumn::Factor, text(before.displayFactor), text(after.displayFactor));
    note(SecurityColumn::Step, text(before.quantityStep), text(after.quantityStep));
    note(SecurityColumn::Limit, limitText(before), limitText(after));
    noteCode(SecurityColumn::Flag, CodeWords::specialTreatments(), before.stFlag, after.stFlag);
    note(SecurityColumn::FlagText, before.stText, after.stText);
    return lines;
}

} // namespace

void LineKeys::check(ImportRow& row, int column, const QString& key)
{
    const auto known = m_lines.constFind(key);
    if (known == m_lines.cend())
        m_lines.insert(key, row.line());
    else
        row.refuse(column, { Error::DuplicateLine, { key, QString::number(*known) } });
}

SecurityImporter::SecurityImporter(Database& database, ImportReport& report)
    : m_store(database)
    , m_report(report)
{
}

Security SecurityImporter::read(ImportRow& row)
{
    Security security;
    security.symbol = row.neededText(SecurityColumn::Symbol).toUpper();
    security.exchange = exchangeOf(security.symbol);
    if (!security.symbol.isEmpty() && security.exchange.isNull())
        row.refuse(SecurityColumn::Symbol, { Error::MalformedSymbol, { security.symbol } });
    security.name = row.neededText(SecurityColumn::Name);
    security.type = row.code(SecurityColumn::Type, CodeWords::securityTypes());
    security.subType = row.code(SecurityColumn::SubType, CodeWords::securitySubTypes());
    const auto whole = [&row](int column, double least, double most) {
        return static_cast<int>(row.neededNumber(column, { least, most, 0 }).value_or(least));
    };
    security.pricePrecision = whole(SecurityColumn::Decimals, 0, MostDecimals);
    security.displayFactor = whole(SecurityColumn::Factor, 1, LargestCount);
    security.quantityStep = whole(SecurityColumn::Step, 1, LargestCount);
    security.limitPerMille = perMille(row);
    security.stFlag = row.code(SecurityColumn::Flag, CodeWords::specialTreatments(), Orlo_Values::StFlag::Normal);
    security.stText = row.text(SecurityColumn::FlagText);
    return security;
}

Status SecurityImporter::take(ImportRow& row)
{
    const Security security = read(row);
    m_keys.check(row, SecurityColumn::Symbol, security.symbol);
    if (row.isRefused())
        return {};
    const Result<Security> stored = m_store.security(security.symbol);
    if (!stored)
        return stored.status();
    if (stored->symbol.isEmpty()) {
        m_report.count(true, { ImportTexts::tr("证券%1：新增%2").arg(security.symbol, security.name) });
        return m_store.add(security, {});
    }
    if (Status status = checkUse(row, *stored, security); !status || row.isRefused())
        return status;
    const QStringList changes = differences(*stored, security);
    m_report.count(false, changes);
    return changes.isEmpty() ? Status() : m_store.change(security);
}

// Closes are stored in ticks, positions and plans in units of the factor.
Status SecurityImporter::checkUse(ImportRow& row, const Security& before, const Security& after)
{
    const bool keepsUnits =
        before.pricePrecision == after.pricePrecision && before.displayFactor == after.displayFactor;
    if (keepsUnits)
        return {};
    if (Status status = readUsed(); !status)
        return status;
    if (before.previousClose == 0 && !m_used.contains(after.symbol))
        return {};
    const int column =
        before.pricePrecision == after.pricePrecision ? SecurityColumn::Factor : SecurityColumn::Decimals;
    row.refuse(column, { Error::SecurityInUse, { after.symbol, form().columns.at(column).name() } });
    return {};
}

Status SecurityImporter::readUsed()
{
    if (m_knowsUsed)
        return {};
    const Result<QStringList> used = m_store.usedSymbols();
    m_used = QSet<QString>(used.valueOr({}).cbegin(), used.valueOr({}).cend());
    m_knowsUsed = true;
    return used.status();
}

Status SecurityImporter::findRemovals()
{
    if (Status status = readUsed(); !status)
        return status;
    return m_store.readAll([this](Security&& security) {
        if (m_keys.contains(security.symbol))
            return;
        if (m_used.contains(security.symbol))
            m_report.refuse({ 0, 0, QString(), { Error::StillInUse, { security.symbol } } });
        m_report.removals << security.symbol;
    });
}

Status SecurityImporter::remove()
{
    Status status;
    for (const QString& symbol : qAsConst(m_report.removals)) {
        if (status)
            status = m_store.remove(symbol);
    }
    return status;
}
