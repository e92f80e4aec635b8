#include "ChineseTexts.h"

#include "DayPrice.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>

namespace {

// Characters, and the punctuation that comes with them.
const QRegularExpression Chinese(QStringLiteral("[\\p{Han}\\x{3001}-\\x{301F}\\x{FF01}-\\x{FF5E}]"));

} // namespace

ChineseTexts::ChineseTexts(const QString& file)
{
    const QString connection = QStringLiteral("data");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(file);
        database.open();
        for (const char* const column :
            { "name FROM users", "name FROM accounts", "name FROM securities", "st_text FROM securities",
                "text FROM static_texts", "title FROM agreements", "content FROM agreements" }) {
            QSqlQuery query(QStringLiteral("SELECT ") + QLatin1String(column), database);
            while (query.next())
                m_data << query.value(0).toString();
        }
    }
    QSqlDatabase::removeDatabase(connection);
    allow({ PriceItem::PreviousClose, PriceItem::UpperLimit, PriceItem::LowerLimit, QStringLiteral("默认不指定") });
}

void ChineseTexts::allow(const QStringList& texts)
{
    m_data += texts;
    m_data.removeAll(QString());
    m_data.removeDuplicates();
    std::sort(m_data.begin(), m_data.end(), [](const QString& a, const QString& b) { return a.size() > b.size(); });
}

bool ChineseTexts::isIn(QString text) const
{
    if (!text.contains(Chinese))
        return false;
    static const QRegularExpression averages(QStringLiteral("\\d+日均价"));
    text.remove(averages);
    for (const QString& data : m_data)
        text.remove(data);
    return text.contains(Chinese);
}

QStringList ChineseTexts::linesIn(const QString& text) const
{
    QStringList found;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (isIn(line))
            found << line;
    }
    return found;
}
