#include "ParameterTypes.h"

#include <algorithm>
#include <iterator>

namespace {

using Info = ParameterTypeInfo;

// In the order of `ParameterType`.
constexpr Info Types[] = {
    { "Int_t", ParameterType::Int, 1, Info::Number, true },
    { "Length_t", ParameterType::Length, 2, Info::Number, false },
    { "NumInGroup_t", ParameterType::NumInGroup, 3, Info::Number, false },
    { "SeqNum_t", ParameterType::SeqNum, 4, Info::Number, false },
    { "TagNum_t", ParameterType::TagNum, 5, Info::Number, false },
    { "Float_t", ParameterType::Float, 6, Info::Number, true },
    { "Qty_t", ParameterType::Qty, 7, Info::Number, true },
    { "Price_t", ParameterType::Price, 8, Info::Number, true },
    { "PriceOffset_t", ParameterType::PriceOffset, 9, Info::Number, true },
    { "Amt_t", ParameterType::Amount, 10, Info::Number, true },
    { "Percentage_t", ParameterType::Percentage, 11, Info::Number, true },
    { "Char_t", ParameterType::Char, 12, Info::Text, false },
    { "Boolean_t", ParameterType::Boolean, 13, Info::Boolean, false },
    { "String_t", ParameterType::String, 14, Info::Text, false },
    { "MultipleCharValue_t", ParameterType::MultipleChar, 15, Info::List, false },
    { "Currency_t", ParameterType::Currency, 16, Info::Text, false },
    { "Exchange_t", ParameterType::Exchange, 17, Info::Text, false },
    { "MonthYear_t", ParameterType::MonthYear, 18, Info::Date, true },
    { "UTCTimestamp_t", ParameterType::UtcTimestamp, 19, Info::Time, true },
    { "UTCTimeOnly_t", ParameterType::UtcTimeOnly, 20, Info::Time, true },
    { "LocalMktDate_t", ParameterType::LocalDate, 21, Info::Date, true },
    { "UTCDateOnly_t", ParameterType::UtcDate, 22, Info::Date, true },
    { "Data_t", ParameterType::Data, 23, Info::Text, false },
    { "MultipleStringValue_t", ParameterType::MultipleString, 24, Info::List, false },
    { "Country_t", ParameterType::Country, 25, Info::Text, false },
    { "Language_t", ParameterType::Language, 26, Info::Text, false },
    { "TZTimeOnly_t", ParameterType::TzTimeOnly, 27, Info::Time, true },
    { "TZTimestamp_t", ParameterType::TzTimestamp, 28, Info::Time, true },
    { "Tenor_t", ParameterType::Tenor, 29, Info::Text, true },
    // A time without date and time zone, which FIX sends as a text.
    { "LocalMktTime_t", ParameterType::LocalTime, 14, Info::Time, true },
};

} // namespace

const ParameterTypeInfo* ParameterTypes::named(const QString& name)
{
    const auto found = std::find_if(
        std::begin(Types), std::end(Types), [&](const Info& info) { return name == QLatin1String(info.name); });
    return found == std::end(Types) ? nullptr : found;
}

const ParameterTypeInfo& ParameterTypes::of(ParameterType type)
{
    return Types[static_cast<int>(type)];
}

bool ParameterTypes::isNumber(ParameterType type)
{
    return of(type).family == Info::Number;
}

bool ParameterTypes::isWhole(ParameterType type)
{
    return isNumber(type) && !isDecimal(type);
}

bool ParameterTypes::isTime(ParameterType type)
{
    return of(type).family == Info::Time;
}

bool ParameterTypes::hasDate(ParameterType type)
{
    return of(type).family == Info::Date || type == ParameterType::UtcTimestamp || type == ParameterType::TzTimestamp;
}

bool ParameterTypes::isDecimal(ParameterType type)
{
    return type >= ParameterType::Float && type <= ParameterType::Percentage;
}

bool ParameterTypes::isList(ParameterType type)
{
    return of(type).family == Info::List;
}
