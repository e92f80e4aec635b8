#include "ExportRun.h"

#include "AccountStore.h"
#include "AuthorityStore.h"
#include "AutoPlanField.h"
#include "ClosureFiles.h"
#include "CodeWords.h"
#include "ErrorText.h"
#include "HistoryTexts.h"
#include "InstructionStore.h"
#include "JournalTexts.h"
#include "Kelvo_Fields.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanSheet.h"
#include "PlanStore.h"
#include "PositionStore.h"
#include "SecurityStore.h"
#include "StoredTexts.h"
#include "TickPrice.h"
#include "TradeCalendar.h"

#include <QFileInfo>
#include <QSaveFile>

#include <functional>

using namespace PlanCodes;

namespace {

constexpr int PageSize = 500;
constexpr int DecimalsOfLimit = 1;

/// Writes the rows of one kind.
class Exporter {
public:
    Exporter(const ExportRun::Task& task, TableWriter& writer)
        : m_database(task.database)
        , m_market(task.market)
        , m_user(task.user)
        , m_day(task.day)
        , m_progress(task.progress)
        , m_writer(writer)
    {
    }

    Status closures()
    {
        for (const QStringList& row : ClosureFiles::calendar().rows())
            m_writer.write({ CodeWords::calendarMarkets().word(row.at(0)), row.at(1), row.at(2),
                CodeWords::closureStatuses().word(row.at(3)) });
        return {};
    }

    Status securities()
    {
        return SecurityStore(m_database).readAll([this](Security&& security) {
            const auto number = [](int value) { return QString::number(value); };
            m_writer.write({ security.symbol, security.name, CodeWords::securityTypes().word(security.type),
                CodeWords::securitySubTypes().word(security.subType), number(security.pricePrecision),
                number(security.displayFactor), number(security.quantityStep),
                QString::number(security.limitPerMille / 10.0, 'f', DecimalsOfLimit) + QLatin1Char('%'),
                CodeWords::specialTreatments().word(security.stFlag), security.stText });
        });
    }

    /// How many closes there are, without writing them.
    Result<qint64> countCloses()
    {
        SecurityStore store(m_database);
        qint64 count = 0;
        for (const QString& symbol : m_market.symbols().toStringList()) {
            const Result<CloseHistory> closes = store.closes(symbol);
            if (!closes)
                return closes.status();
            count += closes->ticks.size();
        }
        return count;
    }

    Status closes()
    {
        SecurityStore store(m_database);
        for (const QString& symbol : m_market.symbols().toStringList()) {
            const Result<CloseHistory> closes = store.closes(symbol);
            if (!closes)
                return closes.status();
            writeCloses(*m_market.find(symbol), *closes);
        }
        return {};
    }

    Status accounts()
    {
        const auto accounts = AccountStore(m_database).accounts();
        for (const StoredAccount& account : accounts.valueOr({})) {
            QStringList row{ account.tradingAccount, account.name, account.fundAccount, account.clientNo,
                account.branchNo, CodeWords::assetProperties().word(account.assetProperty) };
            const auto& columns = TransferForms::accounts().columns;
            for (int i = TransferForms::AccountColumn::FirstExchange; i < columns.size(); ++i)
                row << account.exchangeAccounts.value(columns.at(i).id);
            m_writer.write(row);
        }
        return accounts.status();
    }

    Status users()
    {
        const auto users = UserStore(m_database).users();
        Status status = users.status();
        for (const StoredUser& user : users.valueOr({})) {
            if (status)
                status = writeUser(user);
        }
        return status;
    }

    Status chains()
    {
        const auto accounts = AccountStore(m_database).accounts();
        Status status = accounts.status();
        for (const StoredAccount& account : accounts.valueOr({})) {
            if (status)
                status = writeChains(account.tradingAccount);
        }
        return status;
    }

    Status positions()
    {
        const auto positions = PositionStore(m_database).all();
        for (const StoredPosition& position : positions.valueOr({})) {
            const Security* const security = m_market.find(position.symbol);
            const int factor = security ? security->displayFactor : 1;
            m_writer.write({ position.tradingAccount, position.symbol, position.securityAccount,
                QString::number(position.quantity * factor), QString::number(position.tradeableQuantity * factor) });
        }
        return positions.status();
    }

    Status plans()
    {
        PlanSheet sheet(m_database, m_market, m_user);
        return eachPlan([&](const StoredPlan& plan) {
            m_writer.write(sheet.texts(plan));
            return Status();
        });
    }

    Status instructions()
    {
        InstructionStore store(m_database);
        return eachPlan([&](const StoredPlan& plan) {
            const auto all = store.ofPlan(plan.id);
            if (!all)
                return all.status();
            for (auto one = all->cbegin(); one != all->cend(); ++one)
                writeInstruction(plan, one.key(), *one);
            return Status();
        });
    }

    Status history()
    {
        HistoryStore store(m_database);
        return eachPlan([&](const StoredPlan& plan) {
            const auto entries = store.ofPlan(PlanId::toNumber(plan.id).value_or(0));
            for (const HistoryEntry& entry : entries.valueOr({}))
                writeEntry(entry);
            return entries.status();
        });
    }

    Status journal()
    {
        JournalStore store(m_database, m_user);
        JournalPage page{ m_day, QString(), 0, PageSize };
        const Result<int> count = store.count(page);
        if (!count)
            return count.status();
        int read = PageSize;
        while (read == PageSize) {
            if (!goesOn(page.offset, *count))
                return Error::Cancelled;
            const auto entries = store.page(page);
            if (!entries)
                return entries.status();
            for (const JournalEntry& entry : *entries)
                writeJournal(entry);
            read = entries->size();
            page.offset += read;
        }
        return {};
    }

private:
    // Oldest first, so that a plan keeps its place when there are new ones.
    Status eachPlan(const std::function<Status(const StoredPlan& plan)>& take)
    {
        PlanStore store(m_database, m_user);
        const Result<int> count = store.count();
        Status status = count.status();
        for (int left = count.valueOr(0); left > 0 && status; left -= PageSize) {
            const int size = qMin(left, PageSize);
            const auto page = store.page(left - size, size);
            status = page.status();
            for (int i = page.valueOr({}).size() - 1; i >= 0 && status; --i)
                status = goesOn(*count - left + size - i, *count) ? take(page->at(i)) : Error::Cancelled;
        }
        return status;
    }

    bool goesOn(int done, int count) const
    {
        constexpr qint64 Whole = 1000;
        return !m_progress || m_progress(static_cast<int>(Whole * done / qMax(1, count)));
    }

    void writeCloses(const Security& security, const CloseHistory& closes)
    {
        QVector<QDate> days;
        const TradeCalendar& calendar = ClosureFiles::calendar();
        for (QDate day = closes.lastDay; day.isValid() && days.size() < closes.ticks.size(); day = day.addDays(-1)) {
            const TradeCalendar::Day kind = calendar.day(security.exchange, day);
            if (kind == TradeCalendar::Day::Unknown)
                break;
            if (kind == TradeCalendar::Day::Trades)
                days << day;
        }
        for (int i = days.size() - 1; i >= 0; --i)
            m_writer.write({ security.symbol, days.at(i).toString(Qt::ISODate),
                TickPrice::text(closes.ticks.at(closes.ticks.size() - 1 - i), security.pricePrecision) });
    }

    Status writeUser(const StoredUser& user)
    {
        const auto accounts = AccountStore(m_database).accountsOf(user.id);
        if (!accounts)
            return accounts.status();
        if (accounts->isEmpty())
            m_writer.write({ user.id, user.name, QString(), QString(), QString() });
        AuthorityStore store(m_database);
        for (const StoredAccount& account : *accounts) {
            const Result<QStringList> types = store.types(user.id, account.tradingAccount);
            if (!types)
                return types.status();
            QStringList words;
            QStringList reviewed;
            for (const QString& type : *types) {
                const Result<Rights> rights = store.rights(user.id, account.tradingAccount, type);
                if (!rights)
                    return rights.status();
                words << CodeWords::instructionTypes().word(type);
                if (rights->ruleProperty != 0)
                    reviewed << words.constLast();
            }
            m_writer.write({ user.id, user.name, account.tradingAccount, words.join(QStringLiteral("、")),
                reviewed.join(QStringLiteral("、")) });
        }
        return {};
    }

    Status writeChains(const QString& account)
    {
        AuthorityStore store(m_database);
        const Result<QStringList> types = store.chainTypes(account);
        for (const QString& type : types.valueOr({})) {
            const Result<QString> chain = store.chainKey(account, type);
            if (!chain)
                return chain.status();
            const auto executors = store.chainUsers(*chain, ChainRole::Execute);
            const auto reviewers = store.chainUsers(*chain, ChainRole::Forward);
            if (!executors || !reviewers)
                return executors ? reviewers.status() : executors.status();
            m_writer.write({ account, CodeWords::instructionTypes().word(type), executors->join(QStringLiteral("、")),
                reviewers->join(QStringLiteral("、")) });
        }
        return types.status();
    }

    void writeInstruction(const StoredPlan& plan, const QString& id, const InstructionStore::Fields& fields)
    {
        const auto text = [&fields](const QString& key) { return fields.value(key).toString(); };
        const auto ofPlan = [&plan](const QString& key) { return plan.record.value(key).toString(); };
        m_writer.write({ id, plan.id, text(FieldId::TradeDate), ofPlan(Kelvo_Fields::UserAccount::tradingAccount),
            ofPlan(Kelvo_Fields::Security::symbol),
            CodeWords::sides().word(ofPlan(AutoPlanField::BaseField::orderSide)), text(FieldId::Price),
            text(FieldId::IssuedQty), text(FieldId::FilledQty), text(FieldId::IssuedAmount),
            text(Orlo_Fields::Security::cumAmount), CodeWords::answers().word(text(FieldId::EndState)) });
    }

    void writeEntry(const HistoryEntry& entry)
    {
        m_writer.write({ HistoryTexts::timeText(entry.time), entry.user, entry.client, PlanId::fromNumber(entry.plan),
            QString::number(entry.version), HistoryStore::eventName(entry.event), entry.subject,
            StoredTexts::toJson(entry.before), StoredTexts::toJson(entry.after) });
    }

    void writeJournal(const JournalEntry& entry)
    {
        const QStringList cells = JournalTexts::cells(entry);
        enum { Time, Plan, Account, Security, Side, Event, Text, User };
        m_writer.write({ m_day.toString(Qt::ISODate), cells.at(Time), cells.at(Plan), cells.at(Account),
            entry.plan.record.value(Kelvo_Fields::Security::symbol).toString(), cells.at(Side), cells.at(Event),
            cells.at(Text), cells.at(User) });
    }

    Database& m_database;
    const Market& m_market;
    const StoredUser m_user;
    const QDate m_day;
    const std::function<bool(int perMille)> m_progress;
    TableWriter& m_writer;
};

using Write = Status (Exporter::*)();

QMap<QString, Write> writers()
{
    return { { TransferForms::securities().id, &Exporter::securities },
        { TransferForms::closes().id, &Exporter::closes }, { TransferForms::accounts().id, &Exporter::accounts },
        { TransferForms::users().id, &Exporter::users }, { TransferForms::chains().id, &Exporter::chains },
        { TransferForms::positions().id, &Exporter::positions }, { TransferForms::plans().id, &Exporter::plans },
        { TransferForms::instructions().id, &Exporter::instructions },
        { TransferForms::history().id, &Exporter::history }, { TransferForms::closures().id, &Exporter::closures },
        { TransferForms::journal().id, &Exporter::journal } };
}

TransferForm formOf(const QString& kind)
{
    for (const TransferForm& form : TransferForms::exportable()) {
        if (form.id == kind)
            return form;
    }
    return {};
}

} // namespace

Status ExportRun::run(const Task& task, QIODevice& device)
{
    const auto writer = TableWriter::create(device, task.format, formOf(task.kind).tableColumns());
    Exporter exporter(task, *writer);
    if (task.format == TableFormat::Workbook && task.kind == TransferForms::closes().id) {
        const Result<qint64> count = exporter.countCloses();
        if (!count || *count >= TableWriter::MostSheetRows)
            return count ? Status(Error::TooManyRowsForSheet, { QString::number(TableWriter::MostSheetRows) })
                         : count.status();
    }
    const Status status = (exporter.*writers().value(task.kind))();
    return status ? writer->finish() : status;
}

Status ExportRun::toFile(const Task& task, const QString& file)
{
    QSaveFile output(file);
    if (!output.open(QIODevice::WriteOnly))
        return { Error::FileNotWritten, { file } };
    if (Status status = run(task, output); !status)
        return status;
    return output.commit() ? Status() : Status(Error::FileNotWritten, { file });
}

Result<TableFormat> ExportRun::formatOf(const QString& file)
{
    const QString extension = QFileInfo(file).suffix().toLower();
    if (extension == QLatin1String("csv"))
        return TableFormat::Csv;
    if (extension == QLatin1String("json"))
        return TableFormat::Json;
    if (extension == QLatin1String("xlsx"))
        return TableFormat::Workbook;
    return { Error::UnknownFileFormat, { file } };
}

Status ExportRun::check(const QString& kind)
{
    const QStringList kinds = writers().keys();
    return kinds.contains(kind) ? Status() : Status(Error::UnknownKind, { kind, listText(kinds) });
}
