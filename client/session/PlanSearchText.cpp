#include "PlanSearchText.h"

#include "ClientSession.h"
#include "SymbolSearch.h"

#include <QRegularExpression>

#include <limits>

namespace {

constexpr int UsualDigits = 8;

/// The numbers of the plans whose ids begin with "AP" and the digits.
void addIds(PlanSearch& search, const QString& digits)
{
    bool isNumber = true;
    qint64 first = digits.isEmpty() ? 0 : digits.toLongLong(&isNumber);
    qint64 last = digits.isEmpty() ? std::numeric_limits<qint64>::max() : first;
    for (int missing = UsualDigits - digits.size(); missing > 0 && !digits.isEmpty(); --missing) {
        first *= 10;
        last = last * 10 + 9;
    }
    if (isNumber) {
        search.firstNumber = first;
        search.lastNumber = last;
    }
}

void addSecurities(PlanSearch& search, const QString& text)
{
    SymbolIndexes::instance().waitForFinished();
    const SymbolSearch securities(ClientSession::instance().market().symbols().runs());
    QStringList first;
    securities.appendByCode(text, 1, first);
    if (!first.isEmpty())
        search.symbolStart = text;
    // A name that so many securities have in common is too short to search for.
    securities.appendByName(text, PlanSearch::MostNames + 1, search.symbols);
    search.hasMoreNames = search.symbols.size() > PlanSearch::MostNames;
    search.symbols = search.symbols.mid(0, PlanSearch::MostNames);
}

void addAccounts(PlanSearch& search, const QString& text)
{
    for (const StoredAccount& account : ClientSession::instance().accounts().accounts()) {
        if (account.tradingAccount.startsWith(text) || searchForm(account.fundAccount).startsWith(text)
            || searchForm(account.name).contains(text))
            search.tradingAccounts << account.tradingAccount;
    }
}

} // namespace

std::optional<PlanSearch> planSearch(const QString& text)
{
    static const QRegularExpression id(QStringLiteral("^(AP)?(\\d*)$"));
    const QString wanted = searchForm(text.trimmed());
    if (wanted.isEmpty())
        return std::nullopt;
    PlanSearch search;
    const QRegularExpressionMatch number = id.match(wanted);
    if (number.hasMatch() && !number.captured(1).isEmpty())
        addIds(search, number.captured(2));
    else if (number.hasMatch())
        search.firstNumber = search.lastNumber = wanted.toLongLong();
    addSecurities(search, wanted);
    addAccounts(search, wanted);
    return search;
}
