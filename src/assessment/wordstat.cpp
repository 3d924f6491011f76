#include "assessment/wordstat.h"

#include "base/text.h"
#include "base/words.h"

#include <QCoreApplication>
#include <QHash>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shortestHit = 4;
constexpr qint64 mostListed = 10'000'000;

QString say(const char* text)
{
    return QCoreApplication::translate("WordStat", text);
}

/// A quotient cut to three decimals, toward lower. In whole numbers, so that no rounding comes in between.
double cut(qint64 part, qint64 whole)
{
    return static_cast<double>(part * 1000 / whole) / 1000;
}

QString number(double value)
{
    return QString::number(value, 'g', 15);
}

QString line(const QString& label, const QString& value)
{
    return label + value + text::crlf;
}

} // namespace

bool WordStat::evaluate(const QStringList& specialWords, const QStringList& base)
{
    begin(base);
    for (const QString& word : specialWords)
        match(word);
    return true;
}

void WordStat::setBaseSet(const QStringList& words)
{
    m_baseSet = words;
    m_charLength = 0;
    m_specialWords.clear();
    m_words.clear();
    m_hit.clear();
    m_shapes.assign(128, 0);
    qint64 sentences = 0;
    qint64 numbers = 0;
    for (const QString& word : words) {
        m_charLength += word.size();
        for (const char16_t mark : {u'.', u'?', u'!'})
            sentences += word.contains(QChar(mark)) ? 1 : 0;
        const QString lower = word.toLower();
        if (word != lower)
            m_specialWords.append(word);
        if (words::numericValue(word) != 0)
            ++numbers;
        if (word.size() < shortestHit)
            continue;
        ++m_words[lower].inBase;
        m_shapes[lower[0].unicode() % 128] |= 1ULL << (lower.size() % 64);
    }
    m_sentenceCount = qMax<qint64>(1, sentences);
    if (numbers > std::numeric_limits<qint16>::max())
        throw EvaluationStopped{say("The text holds %1 numbers. Jobwright can count 32767 of them in one "
                                    "profile item.")
                                    .arg(numbers)};
    m_numberCount = static_cast<qint16>(numbers);
}

void WordStat::begin(const QStringList& base)
{
    if (!base.isEmpty() && base != m_baseSet) // the same list again is found out at once
        setBaseSet(base);
    for (Entry* const entry : m_hit)
        entry->hits = 0;
    m_hit.clear();
    m_matchCount = 0;
}

WordStat::Entry* WordStat::find(QStringView word)
{
    m_lower.resize(static_cast<size_t>(word.size()));
    for (qsizetype i = 0; i < word.size(); ++i) {
        const char16_t c = word[i].unicode();
        if (c > 127) {
            const auto found = m_words.find(word.toString().toLower());
            return found == m_words.end() ? nullptr : &found->second;
        }
        m_lower[static_cast<size_t>(i)] = c >= u'A' && c <= u'Z' ? char16_t(c + 0x20) : c;
    }
    if (!(m_shapes[m_lower[0]] >> (word.size() % 64) & 1))
        return nullptr;
    const auto found = m_words.find(QStringView(m_lower.data(), word.size()));
    return found == m_words.end() ? nullptr : &found->second;
}

void WordStat::match(QStringView referenceWord)
{
    if (referenceWord.isEmpty() || m_words.empty())
        return;
    Entry* const entry = find(referenceWord);
    if (!entry)
        return;
    if (entry->hits++ == 0)
        m_hit.push_back(entry);
    m_matchCount += entry->inBase;
}

double WordStat::wordMatchIndex() const
{
    return cut(m_matchCount, wordCount());
}

double WordStat::sentenceMatchIndex() const
{
    return cut(m_matchCount, m_sentenceCount);
}

qint64 WordStat::wordCount() const
{
    return qMax<qint64>(1, m_baseSet.size());
}

QStringList WordStat::matchList() const
{
    if (m_matchCount > mostListed)
        throw EvaluationStopped{
            say("The text has %1 words in common with one list. Jobwright can list ten million.")
                .arg(m_matchCount)};
    QStringList list;
    if (m_matchCount == 0)
        return list;
    for (const QString& word : m_baseSet) {
        if (word.size() < shortestHit)
            continue;
        const auto found = m_words.find(word.toLower());
        for (qint64 i = 0; found != m_words.end() && i < found->second.hits; ++i)
            list.append(word);
    }
    return list;
}

qint64 WordStat::matchFrequency() const
{
    QHash<QString, qint64> times;
    for (const QString& word : matchList())
        ++times[word];
    qint64 pairs = 0;
    for (const qint64 count : std::as_const(times))
        pairs += count * (count - 1);
    return pairs;
}

// --- Reports ----------------------------------------------------------------------------------------------

// Labels and line ends are fixed: other programs read reports that were copied out of the box.
QString WordStat::shownMatches(const QString& heading) const
{
    const QStringList list = matchList();
    return list.isEmpty() ? QString() : u"---"_s + text::crlf + heading + list.join(u',');
}

QString WordStat::displayStat() const
{
    QString report = line(u"Length:"_s, QString::number(m_charLength)) +
                     line(u"Matches:"_s, QString::number(m_matchCount)) +
                     line(u"Total Words:"_s, QString::number(wordCount())) +
                     line(u"Total Sentences:"_s, QString::number(m_sentenceCount)) +
                     line(u"Sentence Match Index:"_s, number(sentenceMatchIndex())) +
                     line(u"Word Match Index:"_s, number(wordMatchIndex())) +
                     line(u"Frequency:"_s, QString::number(matchFrequency())) + u"Special Words: ";
    // Without such words the line stays open.
    if (!m_specialWords.isEmpty())
        report += m_specialWords.join(u',') + text::crlf;
    return report + shownMatches(u"Matches: "_s);
}

QString WordStat::displaySubStat() const
{
    return line(u"Matches:"_s, QString::number(m_matchCount)) +
           line(u"Sentence Match Index:"_s, number(sentenceMatchIndex())) +
           line(u"Word Match Index:"_s, number(wordMatchIndex())) +
           line(u"Frequency:"_s, QString::number(matchFrequency())) + shownMatches(u"Match List: "_s);
}

QString WordStat::displaySimpleStat(double low, double mid, double high) const
{
    QString report = line(u"Length:"_s, QString::number(m_charLength)) +
                     line(u"Matches:"_s, QString::number(m_matchCount)) +
                     line(u"Total Words:"_s, QString::number(wordCount())) +
                     line(u"Total Sentences:"_s, QString::number(m_sentenceCount));
    // Both have three decimals; so has their sum, which must not pass a threshold by a rounding.
    const double sum = std::round((wordMatchIndex() + sentenceMatchIndex()) * 1000) / 1000;
    const auto passed = [&](double threshold, double standard, const QString& name) {
        if (sum > (threshold == 0 ? standard : threshold))
            report += line(name, u" Threshold passed"_s);
    };
    passed(low, 0.01, u"Low"_s);
    passed(mid, 0.05, u"Mid"_s);
    passed(high, 0.1, u"High"_s);
    return report;
}
