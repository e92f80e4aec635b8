#include "ScopeReader.h"

#include "ElementReader.h"

#include <QRegularExpression>

namespace {

StrategyScope::Entry readEntry(ElementReader& reader, const char* attribute)
{
    StrategyScope::Entry entry;
    entry.code = reader.required(attribute).trimmed();
    reader.expected("inclusion");
    entry.isIncluded = reader.choice("inclusion", { QStringLiteral("Include"), QStringLiteral("Exclude") }, 0) == 0;
    return entry;
}

void checkForm(ElementReader& reader, const char* attribute, const QString& code, const QString& form)
{
    if (!QRegularExpression(QRegularExpression::anchoredPattern(form)).match(code).hasMatch())
        reader.warn({ Error::NameNotStandard, { QLatin1String(attribute), code.left(64) } });
}

StrategyScope::Entry readLeaf(
    const StrategyElement& element, const char* attribute, const QString& form, StrategyRemarks& remarks)
{
    ElementReader reader(element, remarks);
    StrategyScope::Entry entry = readEntry(reader, attribute);
    checkForm(reader, attribute, entry.code, form);
    entry.code = entry.code.toUpper();
    reader.finish();
    for (const StrategyElement& child : element.children)
        ElementContents::refuseChild(child, remarks);
    return entry;
}

StrategyScope::Region readRegion(const StrategyElement& element, StrategyRemarks& remarks)
{
    ElementReader reader(element, remarks);
    StrategyScope::Region region;
    region.entry = readEntry(reader, "name");
    const QStringList names{ QStringLiteral("TheAmericas"), QStringLiteral("EuropeMiddleEastAfrica"),
        QStringLiteral("AsiaPacificJapan") };
    region.entry.code = names.at(reader.choice("name", names, 0));
    reader.finish();
    for (const StrategyElement& child : element.children) {
        if (child.name == QLatin1String("Country"))
            region.countries.append(readLeaf(child, "CountryCode", QStringLiteral("[A-Z0-9]{2}"), remarks));
        else
            ElementContents::refuseChild(child, remarks);
    }
    return region;
}

template <typename Read>
void readAll(const StrategyElement& element, const char* name, StrategyRemarks& remarks, const Read& readChild)
{
    ElementReader(element, remarks).finish();
    ElementContents::refuseText(element, remarks);
    for (const StrategyElement& child : element.children) {
        if (child.name == QLatin1String(name))
            readChild(child);
        else
            ElementContents::refuseChild(child, remarks);
    }
    if (element.children.empty())
        remarks.warn(element.line, { Error::ElementExpected, { element.name, QLatin1String(name) } });
}

} // namespace

bool ScopeReader::read(const StrategyElement& element, StrategyScope& scope, StrategyRemarks& remarks)
{
    if (element.name == QLatin1String("Regions")) {
        readAll(element, "Region", remarks,
            [&](const StrategyElement& child) { scope.regions.append(readRegion(child, remarks)); });
    } else if (element.name == QLatin1String("Markets")) {
        readAll(element, "Market", remarks, [&](const StrategyElement& child) {
            scope.markets.append(readLeaf(child, "MICCode", QStringLiteral("[A-Z0-9]{4}"), remarks));
        });
    } else if (element.name == QLatin1String("SecurityTypes")) {
        readAll(element, "SecurityType", remarks, [&](const StrategyElement& child) {
            scope.securityTypes.append(readLeaf(child, "name", QStringLiteral("[A-Z?]+"), remarks));
        });
    } else {
        return false;
    }
    return true;
}
