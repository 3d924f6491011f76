#include "assessment/evaluation.h"

#include "base/text.h"
#include "base/words.h"
#include "store/gateway/datajw.h"

#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString say(const char* text)
{
    return QCoreApplication::translate("Evaluation", text);
}

/// Thrown by a step after which the user wants no other.
struct GivenUp
{
};

constexpr int stepRows = 100;
/// Words of a position behind its first that are shorter do not count.
constexpr qsizetype shortestWord = 4;

/// The values that the settings write for yes and no, and what people write.
std::optional<bool> boolean(const QString& value)
{
    const QString text = value.trimmed().toLower();
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (isNumber)
        return number != 0;
    if (text == u"true")
        return true;
    return text == u"false" ? std::optional(false) : std::nullopt;
}

} // namespace

void Evaluation::clear()
{
    report.clear();
    m_positions.clear();
    m_passed.clear();
    m_matched.clear();
}

bool Evaluation::run(const QString& problem, const QString& action, const QString& result, const Tell& tell)
{
    m_tell = &tell;
    m_stopped.clear();
    m_positions.clear();
    m_passed.clear();
    m_matched.clear();
    try {
        step(say("Parsing words in each PAR element..."));
        m_words = words::split(QString(problem + u' ' + action + u' ' + result));
        m_stat.setBaseSet(m_words);
        m_detail = isOn(u"DetailStats"_s);
        dictionaryTests();
        testPositions();
        testOccupations();
        tell(say("Complete."), 0, 0);
        return true;
    } catch (const EvaluationStopped& stopped) {
        m_stopped = stopped.reason;
    } catch (const GivenUp&) {
    }
    return false;
}

void Evaluation::step(const QString& status, int done, int total)
{
    if (!(*m_tell)(status, done, total))
        throw GivenUp();
}

bool Evaluation::isOn(const QString& setting) const
{
    const QString value = m_session.dataJW().getStatusValue(setting);
    const auto on = boolean(value);
    if (!on)
        throw EvaluationStopped{
            value.isEmpty()
                ? say("The setting %1 is missing or empty. It should be 1 or 0.").arg(setting)
                : say("The setting %1 should be 1 or 0, and is “%2”.").arg(setting, value.left(40))};
    return *on;
}

QString Evaluation::detailOr(QString (WordStat::*detail)() const) const
{
    return m_detail ? (m_stat.*detail)() : m_stat.displaySimpleStat(0, 0, 0);
}

void Evaluation::noteMatches(Kind kind)
{
    for (const QString& word : m_stat.matchList())
        m_matched[word.toLower()] |= 1 << kind;
}

void Evaluation::dictionaryTests()
{
    const auto test = [this](const QString& setting, const QString& status, const QString& file, Kind kind) {
        if (!isOn(setting))
            return false;
        step(status);
        m_stat.evaluate(loadDictionary(m_session.folder(), file), m_words);
        noteMatches(kind);
        return true;
    };
    if (test(u"ActionWordTest"_s, say("Evaluating Action Words"), u"R-AC.jwd"_s, Action))
        report = detailOr(&WordStat::displayStat);
    if (test(u"CriticalityWordTest"_s, say("Evaluating Criticality"), u"R-CR.jwd"_s, Criticality))
        report += text::crlf + u"CRITICALITY TEST" + text::crlf + detailOr(&WordStat::displaySubStat);
    if (test(u"QuantificationTest"_s, say("Evaluating Quantification"), u"R-QN.jwd"_s, Quantification))
        report += text::crlf + u"QUANTIFICATION TEST" + text::crlf + u"Quantifications: " +
                  QString::number(m_stat.numberCount() + m_stat.matchCount()) + text::crlf;
}

void Evaluation::testPositions()
{
    if (!isOn(u"PositionCorrelation"_s))
        return;
    DataJW& data = m_session.dataJW();
    double threshold = words::numericValue(data.getStatusValue(u"PositionThreshold"_s).trimmed());
    if (threshold == 0)
        threshold = 0.05;
    const QString status = say("Evaluating Position Correlations");
    step(status);
    const std::vector<Key> keys = data.getPositionKeysAll();
    if (keys.empty()) {
        m_session.msgBox(say("No positions in database for comparison."));
        return;
    }
    report += u"POSITION MATCHES:" + text::crlf;
    // Read in portions, so that a user who gives up is heard between them.
    for (size_t first = 0; first < keys.size(); first += stepRows) {
        const size_t behind = qMin(first + stepRows, keys.size());
        RecordSet rows = data.getExecQueryRecords(
            u"Select PositionKey,Keyword,Title,Responsibilities,Qualifications,Notes from Position where "
            "PositionKey>="_s +
            QString::number(keys[first]) + u" And PositionKey<=" + QString::number(keys[behind - 1]) +
            u" order by PositionKey");
        for (; !rows.atEnd(); rows.next())
            testPosition(rows, threshold);
        step(status, static_cast<int>(behind), static_cast<int>(keys.size()));
    }
}

void Evaluation::testPosition(const RecordSet& row, double threshold)
{
    m_stat.begin(m_words);
    bool isFirst = true;
    // As DataJW::parsePositionText() reads it, without a list of the words.
    const QString text = row.text(u"Keyword") + u' ' + row.text(u"Title") + row.text(u"Responsibilities") +
                         u' ' + row.text(u"Qualifications") + u' ' + row.text(u"Notes");
    words::walk(text, [&](QStringView word) {
        if (std::exchange(isFirst, false) || word.size() >= shortestWord)
            m_stat.match(word);
        return true;
    });
    if (m_stat.wordMatchIndex() <= threshold)
        return;
    const PositionMatch match{row.key(u"PositionKey").value_or(0), row.text(u"Title"),
                              m_stat.wordMatchIndex(), m_stat.sentenceMatchIndex()};
    noteMatches(Position);
    m_positions.push_back(match);
    report += match.title + text::crlf + u"Word Match Index:" +
              QString::number(match.wordMatchIndex, 'g', 15) + text::crlf + u"Sentence Match Index:" +
              QString::number(match.sentenceMatchIndex, 'g', 15) + text::crlf + u"---" + text::crlf;
}

void Evaluation::testOccupations()
{
    if (!isOn(u"OccupationTest"_s))
        return;
    const QString status = say("Evaluating Occupation Correlation");
    step(status);
    if (!m_occupations.loadOccupations(m_session.folder()))
        m_session.trace(u"frmUProfile - Occupation List NOT found."_s);
    for (int number = 1; number <= m_occupations.count(); ++number) {
        ::Occupation& occupation = m_occupations.at(number);
        m_stat.evaluate(occupation.terms, m_words);
        if (m_stat.wordMatchIndex() > occupation.indexThreshold) {
            occupation.Notes = detailOr(&WordStat::displayStat);
            noteMatches(Occupation);
            m_passed.push_back(number);
        }
        step(status, number, m_occupations.count());
    }
}
