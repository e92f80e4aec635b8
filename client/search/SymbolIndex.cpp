#include "SymbolIndex.h"

#include <algorithm>
#include <numeric>

namespace {

/// Ends every name; sorts before every character that can be typed.
constexpr QChar NameEnd;
/// Number of characters in a suffix's head, and the bits of each.
constexpr int HeadLength = 4;
constexpr int CharacterBits = 16;
constexpr int CharacterCodes = 1 << CharacterBits;
/// Longest part of a name that is found, in characters. Long names with equal parts would be sorted for hours.
constexpr int LongestName = 256;

/// Thrown to leave the preparation, even from within a sort.
struct Stopped { };

} // namespace

QString searchForm(const QString& text)
{
    return text.normalized(QString::NormalizationForm_KC).toUpper();
}

SymbolIndex::SymbolIndex(const QStringList& run, const NameOf& nameOf)
    : m_run(run)
    , m_nameOf(nameOf)
{
}

void SymbolIndex::prepareCodes()
{
    try {
        sortCodes();
        m_hasCodes.store(true, std::memory_order_release);
    } catch (const Stopped&) {
        m_byCode.clear();
    }
}

void SymbolIndex::prepareNames()
{
    try {
        readNames();
        sortSuffixes();
        m_hasNames.store(true, std::memory_order_release);
    } catch (const Stopped&) {
        m_suffixes.clear();
    }
}

void SymbolIndex::throwIfStopped() const
{
    if (m_stopped.load(std::memory_order_acquire))
        throw Stopped();
}

void SymbolIndex::sortCodes()
{
    throwIfStopped();
    m_codes.reserve(m_run.size());
    for (const QString& symbol : m_run) {
        throwIfStopped();
        m_codes.append(searchForm(symbol));
    }
    m_byCode.resize(m_run.size());
    std::iota(m_byCode.begin(), m_byCode.end(), 0);
    const auto earlier = [this](int a, int b) {
        throwIfStopped();
        const int order = m_codes.at(a).compare(m_codes.at(b));
        return order != 0 ? order < 0 : a < b;
    };
    if (!std::is_sorted(m_byCode.cbegin(), m_byCode.cend(), earlier))
        std::sort(m_byCode.begin(), m_byCode.end(), earlier);
}

int SymbolIndex::firstNotBefore(const QString& code) const
{
    const auto isBefore = [this](int row, const QString& text) { return m_codes.at(row) < text; };
    return static_cast<int>(std::lower_bound(m_byCode.cbegin(), m_byCode.cend(), code, isBefore) - m_byCode.cbegin());
}

void SymbolIndex::readNames()
{
    throwIfStopped();
    m_starts.reserve(m_run.size());
    for (const QString& symbol : m_run) {
        throwIfStopped();
        m_starts.append(m_names.size());
        m_names += searchForm(m_nameOf(symbol).left(LongestName)) + NameEnd;
    }
    m_names.squeeze();
    collectLetters();
}

void SymbolIndex::collectLetters()
{
    m_letters.resize(CharacterCodes);
    for (const QChar character : qAsConst(m_names)) {
        if (character != NameEnd && !character.isSurrogate())
            m_letters.setBit(character.unicode());
    }
}

QVector<SymbolIndex::Suffix> SymbolIndex::suffixes() const
{
    QVector<Suffix> all;
    all.reserve(m_names.size() - m_starts.size());
    quint64 head = 0;
    for (int position = m_names.size() - 1; position >= 0; --position) {
        throwIfStopped();
        const quint64 character = m_names.at(position).unicode();
        const bool isEnd = character == NameEnd.unicode();
        head = isEnd ? 0 : (character << (HeadLength - 1) * CharacterBits) | (head >> CharacterBits);
        if (!isEnd)
            all.append({ head, position });
    }
    return all;
}

void SymbolIndex::sortSuffixes()
{
    QVector<Suffix> all = suffixes();
    std::sort(all.begin(), all.end(), [this](const Suffix& a, const Suffix& b) { return isEarlier(a, b); });
    m_suffixes.reserve(all.size());
    for (const Suffix& suffix : qAsConst(all))
        m_suffixes.append(suffix.position);
}

bool SymbolIndex::isEarlier(const Suffix& a, const Suffix& b) const
{
    throwIfStopped();
    if (a.head != b.head)
        return a.head < b.head;
    const QChar* names = m_names.constData();
    // If the heads are equal, either both names end in them or neither does.
    bool ended = (a.head & (CharacterCodes - 1)) == NameEnd.unicode();
    for (int i = HeadLength; !ended; ++i) {
        const QChar inA = names[a.position + i];
        const QChar inB = names[b.position + i];
        if (inA != inB)
            return inA < inB;
        ended = inA == NameEnd;
    }
    return a.position < b.position;
}

/// Negative, zero or positive if the text at the position sorts before `part`, starts with it or sorts after it.
int SymbolIndex::compareStart(int position, const QString& part) const
{
    for (const QChar wanted : part) {
        const QChar present = m_names.at(position++);
        if (present == NameEnd || present < wanted)
            return -1;
        if (present > wanted)
            return 1;
    }
    return 0;
}

int SymbolIndex::rowOf(int position) const
{
    return static_cast<int>(std::upper_bound(m_starts.cbegin(), m_starts.cend(), position) - m_starts.cbegin()) - 1;
}

void SymbolIndex::appendByName(const QString& part, int limit, QStringList& found) const
{
    if (part.isEmpty())
        return;
    const auto isBefore = [this](int position, const QString& text) { return compareStart(position, text) < 0; };
    auto suffix = std::lower_bound(m_suffixes.cbegin(), m_suffixes.cend(), part, isBefore);
    for (; suffix != m_suffixes.cend() && found.size() < limit && compareStart(*suffix, part) == 0; ++suffix) {
        const QString& symbol = m_run.at(rowOf(*suffix));
        if (!found.contains(symbol))
            found.append(symbol);
    }
}
