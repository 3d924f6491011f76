// The word evaluation's engine: the words of a text against a list of reference words.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <unordered_map>
#include <vector>

/// A run of tests that cannot go on: a sentence for the user that names the file and line, or the row.
struct EvaluationStopped
{
    QString reason;
};

/// The outcome of the last evaluate(). One object serves all tests of a run. The results are those of
/// comparing each word with each reference word; they are found by one look-up for each reference word.
class WordStat
{
public:
    WordStat() = default;
    WordStat(const WordStat&) = delete;
    WordStat& operator=(const WordStat&) = delete;

    /// Compares @p base, or the base set of the call before when it is empty, with the reference words. A hit
    /// needs four characters and equality but for case, and counts once for each time that both stand in
    /// their lists. Answers true. Throws EvaluationStopped when the numbers in the base set are more than 16
    /// bits hold.
    bool evaluate(const QStringList& specialWords, const QStringList& base);

    /// The same in steps, for reference words that are not at hand as a list.
    void begin(const QStringList& base);
    void match(QStringView referenceWord);

    [[nodiscard]] qint16 numberCount() const { return m_numberCount; }
    [[nodiscard]] const QStringList& baseSet() const { return m_baseSet; }
    [[nodiscard]] qint64 charLength() const { return m_charLength; }
    /// Words with a capital, in the order of the text.
    [[nodiscard]] const QStringList& specialWordsList() const { return m_specialWords; }
    [[nodiscard]] double wordMatchIndex() const;     ///< hits for each word, cut to three decimals
    [[nodiscard]] double sentenceMatchIndex() const; ///< hits for each sentence, cut to three decimals
    /// An entry for each hit in the spelling of the text. Throws EvaluationStopped past ten million entries.
    [[nodiscard]] QStringList matchList() const;
    [[nodiscard]] qint64 sentenceCount() const { return m_sentenceCount; } ///< at least 1
    /// For each word that stands k times in the match list, k times k - 1.
    [[nodiscard]] qint64 matchFrequency() const;
    [[nodiscard]] qint64 matchCount() const { return m_matchCount; }
    [[nodiscard]] qint64 wordCount() const; ///< at least 1

    /// Takes the words under test; what depends on them alone is counted here.
    void setBaseSet(const QStringList& words);

    [[nodiscard]] QString displayStat() const;
    [[nodiscard]] QString displaySubStat() const;
    /// The short form. A threshold of 0 stands for its default: 0.01, 0.05, 0.1.
    [[nodiscard]] QString displaySimpleStat(double low, double mid, double high) const;

private:
    /// What hits one word, whatever its case.
    struct Entry
    {
        qint64 inBase = 0; ///< how often it stands in the base set
        qint64 hits = 0;   ///< how often it stands in the reference list
    };
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(QStringView word) const { return qHash(word, 0); }
    };
    struct Equal
    {
        using is_transparent = void;
        bool operator()(QStringView a, QStringView b) const { return a == b; }
    };
    [[nodiscard]] Entry* find(QStringView word);
    [[nodiscard]] QString shownMatches(const QString& heading) const;

    QStringList m_baseSet;
    qint16 m_numberCount = 0;
    qint64 m_charLength = 0;
    QStringList m_specialWords;
    qint64 m_sentenceCount = 1;
    qint64 m_matchCount = 0;
    std::unordered_map<QString, Entry, Hash, Equal> m_words; ///< the base set's words in lower case
    std::vector<quint64> m_shapes;                           ///< bits of lengths and first letters that occur
    std::vector<Entry*> m_hit;                               ///< entries with hits
    std::vector<char16_t> m_lower;                           ///< a reference word in lower case
};
