#include "Script.h"

#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace {

QString readable(const QVariant& value);

QString readableList(const QVariantList& values)
{
    QStringList parts;
    for (const QVariant& value : values)
        parts.append(readable(value));
    return parts.join(QStringLiteral(", "));
}

QString readableMap(const QVariantMap& map)
{
    QStringList parts;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        parts.append(it.key() + QStringLiteral(": ") + readable(it.value()));
    return QLatin1Char('{') + parts.join(QStringLiteral(", ")) + QLatin1Char('}');
}

QString readable(const QVariant& value)
{
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return QLatin1Char('[') + readableList(value.toList()) + QLatin1Char(']');
    case QMetaType::QVariantMap:
        return readableMap(value.toMap());
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    default:
        break;
    }
    const QString text = value.toString();
    return text.isEmpty() ? QStringLiteral("\"\"") : text;
}

/// Writes what the form's widgets go through into the script.
class FormWatcher : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QWidget* const widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && !widget->objectName().isEmpty()
            && !widget->objectName().startsWith(QLatin1String("qt_")))
            note(*widget, event->type());
        return false;
    }

private:
    static void note(const QWidget& widget, QEvent::Type type)
    {
        const QString name = widget.objectName();
        if (type == QEvent::HideToParent)
            Script::instance().step(name + QStringLiteral(".hide()"));
        else if (type == QEvent::ShowToParent)
            Script::instance().step(name + QStringLiteral(".show()"));
        else if (type == QEvent::EnabledChange)
            Script::instance().step(
                QStringLiteral("%1.setEnabled(%2)").arg(name, QVariant(widget.isEnabled()).toString()));
    }
};

FormWatcher& formWatcher()
{
    static FormWatcher watcher;
    return watcher;
}

QList<QDate> weekdaysOfTwelveMonths()
{
    QList<QDate> dates;
    const QDate end(2025, 4, 30);
    for (QDate date(2024, 5, 1); date <= end; date = date.addDays(1)) {
        if (date.dayOfWeek() < Qt::Saturday)
            dates.append(date);
    }
    return dates;
}

QString exchangeOf(const QString& symbol)
{
    if (symbol.endsWith(Kelvo_Values::SymbolPost::sh))
        return Kelvo_Values::Exchange::sh;
    if (symbol.endsWith(Kelvo_Values::SymbolPost::sz))
        return Kelvo_Values::Exchange::sz;
    return Orlo_Values::Exchange::bj;
}

QMap<QString, QString> firstStaticTexts()
{
    return {
        { QStringLiteral("AutoPlanInstructionType/1"), QStringLiteral("普通") },
        { QStringLiteral("AutoPlanInstructionType/2"), QStringLiteral("信用") },
        { QStringLiteral("AutoPlanInstructionType/5"), QStringLiteral("债券") },
        { QStringLiteral("AutoPlanInstructionType/9"), QStringLiteral("港股通") },
        { QStringLiteral("InstructionTargetType/") + InstructionTargetType::QtyOrder, QStringLiteral("按数量") },
        { QStringLiteral("InstructionTargetType/") + InstructionTargetType::AmountOrder, QStringLiteral("按金额") },
    };
}

} // namespace

Script::Script()
    : staticTexts(firstStaticTexts())
    , generalTradeDates(weekdaysOfTwelveMonths())
    , panelLoadAnswer(QStringLiteral("0"))
{
}

Script& Script::instance()
{
    static Script script;
    return script;
}

void Script::reset()
{
    watch(false);
    *this = Script();
}

void Script::watch(bool on)
{
    if (qApp == nullptr)
        return;
    qApp->removeEventFilter(&formWatcher());
    if (on)
        qApp->installEventFilter(&formWatcher());
}

void Script::forget()
{
    calls.clear();
    steps.clear();
    boxes.clear();
}

QStringList Script::callsOf(const QString& operation) const
{
    QStringList found;
    for (const QString& call : calls) {
        if (call.startsWith(operation + QLatin1Char('(')))
            found.append(call);
    }
    return found;
}

int Script::countOf(const QString& operation) const
{
    return callsOf(operation).size();
}

void Script::addAccount(const QString& tradingAccount, const QStringList& exchanges,
    const QStringList& instructionTypes, const QString& assetProperty)
{
    tagUserAccountInfo account;
    account.tradingAccount = tradingAccount;
    account.fundAccount = QStringLiteral("F-") + tradingAccount;
    account.accountName = QStringLiteral("N-") + tradingAccount;
    account.clientNo = QStringLiteral("C-") + tradingAccount;
    account.branchNo = QStringLiteral("B-") + tradingAccount;
    accounts.append(account);
    QMap<QString, QString> held;
    for (const QString& exchange : exchanges)
        held.insert(exchange, QStringLiteral("S-%1-%2").arg(tradingAccount, exchange));
    securityAccounts.insert(tradingAccount, held);
    authorities.insert(tradingAccount, instructionTypes);
    assetProperties.insert(tradingAccount, assetProperty);
}

void Script::addOrdinaryAccount(const QString& tradingAccount)
{
    addAccount(tradingAccount,
        { Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz, Orlo_Values::Exchange::bj,
            Orlo_Values::Exchange::HkStockCirculation },
        { QStringLiteral("1"), QStringLiteral("5"), QStringLiteral("9") });
}

void Script::addCreditAccount(const QString& tradingAccount)
{
    addAccount(tradingAccount, { Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz }, { QStringLiteral("2") },
        Orlo_Values::FundAccountType::Credit);
}

void Script::addStock(const QString& symbol)
{
    ScriptSecurity security;
    security.exchange = exchangeOf(symbol);
    security.type = Kelvo_Values::MdcSecurityType::StockType;
    security.subType = Kelvo_Values::MdcSubSecurityType::Ashares;
    security.chineseName = QStringLiteral("股票") + symbol;
    security.hasPriceLimit = true;
    security.qtyStep = 100;
    securities.insert(symbol, security);
}

void Script::addBond(const QString& symbol, int displayFactor)
{
    ScriptSecurity security;
    security.exchange = exchangeOf(symbol);
    security.type = Kelvo_Values::MdcSecurityType::BondType;
    security.subType = Orlo_Values::MdcSubSecurityType::AllBondNoRepurchaseTypeList.value(0);
    security.chineseName = QStringLiteral("债券") + symbol;
    security.displayFactor = displayFactor;
    security.pricePrecision = 3;
    security.qtyStep = 10;
    securities.insert(symbol, security);
}

void Script::addHkStock(const QString& symbol, int qtyStep)
{
    ScriptSecurity security;
    security.exchange = Orlo_Values::Exchange::HkStockCirculation;
    security.type = Kelvo_Values::MdcSecurityType::StockType;
    security.subType = Orlo_Values::MdcSubSecurityType::HStcokCirculation;
    security.chineseName = QStringLiteral("港股") + symbol;
    security.pricePrecision = 3;
    security.qtyStep = qtyStep;
    securities.insert(symbol, security);
}

void Script::record(const QString& operation, const QVariantList& arguments)
{
    const QString call = operation + QLatin1Char('(') + readableList(arguments) + QLatin1Char(')');
    calls.append(call);
    steps.append(call);
    if (onCall)
        onCall(call);
}

void Script::step(const QString& text)
{
    steps.append(text);
}
