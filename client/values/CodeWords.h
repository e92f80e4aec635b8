#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// Codes with the words that are shown for them, and other words that mean them in a file. The words are captions, see
/// `captionText`.
class CodeWords {
public:
    struct Word {
        QString code;
        QString word;
        QStringList others = {};
    };

    CodeWords(std::initializer_list<Word> words)
        : m_words(words)
    {
    }

    /// The code itself if it has no word.
    QString word(const QString& code) const;
    /// The code of a code or a word, whose case does not count; null if there is none.
    QString code(const QString& text) const;

    static const CodeWords& planTypes();
    static const CodeWords& instructionTypes();
    static const CodeWords& sides();
    static const CodeWords& priceModes();
    static const CodeWords& instructionModes();
    static const CodeWords& priceTypes();
    static const CodeWords& exchanges();
    static const CodeWords& securityTypes();
    static const CodeWords& securitySubTypes();
    static const CodeWords& assetProperties();
    static const CodeWords& specialTreatments();
    static const CodeWords& answers();
    static const CodeWords& planStates();
    static const CodeWords& calendarMarkets();
    static const CodeWords& closureStatuses();

private:
    QVector<Word> m_words;
};
