#pragma once

#include <QBitArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <functional>

/// The form of a text or symbol that is compared in a search: half-width letters and digits in one case.
QString searchForm(const QString& text);

/// One run of symbols, sorted for search by code and by Chinese name. Both are prepared on a worker thread and can be
/// searched once they are ready, in logarithmic time.
class SymbolIndex {
public:
    /// The Chinese name of a symbol; called by the worker.
    using NameOf = std::function<QString(const QString& symbol)>;

    SymbolIndex(const QStringList& run, const NameOf& nameOf);

    /// Called by the worker. Both return early after `stop`; the index then never becomes ready.
    void prepareCodes();
    void prepareNames();
    /// Allows or stops the preparation; callable from any thread.
    void begin() { m_stopped.store(false, std::memory_order_release); }
    void stop() { m_stopped.store(true, std::memory_order_release); }

    bool hasCodes() const { return m_hasCodes.load(std::memory_order_acquire); }
    bool hasNames() const { return m_hasNames.load(std::memory_order_acquire); }

    /// The following need `hasCodes`. Places are counted in the order of the codes.
    int size() const { return m_byCode.size(); }
    int firstNotBefore(const QString& code) const;
    const QString& codeAt(int place) const { return m_codes.at(m_byCode.at(place)); }
    const QString& symbolAt(int place) const { return m_run.at(m_byCode.at(place)); }

    /// The characters of all names, by their codes. Needs `hasNames`.
    const QBitArray& letters() const { return m_letters; }
    /// Appends symbols whose name contains `part`, until `found` holds `limit`. None is appended twice. Needs
    /// `hasNames`; an empty part matches nothing.
    void appendByName(const QString& part, int limit, QStringList& found) const;

private:
    struct Suffix {
        quint64 head; ///< its first four characters, so that most comparisons do not read the text
        int position;
    };

    void throwIfStopped() const;
    void sortCodes();
    void readNames();
    void collectLetters();
    QVector<Suffix> suffixes() const;
    void sortSuffixes();
    bool isEarlier(const Suffix& a, const Suffix& b) const;
    int compareStart(int position, const QString& part) const;
    int rowOf(int position) const;

    const QStringList m_run;
    const NameOf m_nameOf;
    QVector<QString> m_codes; ///< search forms, by row
    QVector<int> m_byCode;    ///< rows, sorted by code
    QString m_names;          ///< search forms of all names, each with an end
    QBitArray m_letters;
    QVector<int> m_starts;   ///< where in the names each row's begins
    QVector<int> m_suffixes; ///< every position within a name, sorted by what follows
    std::atomic_bool m_stopped{ true };
    std::atomic_bool m_hasCodes{ false };
    std::atomic_bool m_hasNames{ false };
};
