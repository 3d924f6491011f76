// The profile screen: the evaluation and what it found.
#include "assessment/frmuprofile.h"

#include "base/fieldtext.h"
#include "store/gateway/datajw.h"

using namespace Qt::StringLiterals;

namespace {

/// Lines end as they do in the store, so that an item scores the same from the screen and from the command
/// line.
QString evaluated(QString text)
{
    return text.replace(u'\n', u"\r\n"_s);
}

constexpr int allOfBar = 1000;

QString shownIndex(double index)
{
    return QString::number(index, 'f', 3);
}

} // namespace

void FrmUProfile::cmdEvaluate()
{
    if (m_evaluating)
        return;
    m_evaluating = true;
    m_form.setText(u"rtf"_s, {});
    m_positions.setRows({});
    m_occupations.setRows({});
    m_evaluation.report = text(u"txtExample"_s);
    m_evaluation.report.replace(u'\n', u"\r\n"_s);
    QString last;
    bool whole = false;
    {
        // One bar for all tests; only the positions are so many that they move it by themselves.
        ProgressScope progress(m_session, tr("Evaluation"), allOfBar);
        const auto tell = [&](const QString& status, int done, int total) {
            if (status != last)
                showResults(status);
            last = status;
            return progress.step(total == 0 ? 0 : static_cast<int>(qint64(allOfBar) * done / total), status);
        };
        whole = m_evaluation.run(evaluated(text(u"txtP"_s)), evaluated(text(u"txtA"_s)),
                                 evaluated(text(u"txtR"_s)), tell);
    }
    m_evaluating = false;
    showResults(whole ? last : tr("Ended early. What is shown was found until then."));
    showHints();
    emit changed();
    if (!m_evaluation.stopped().isEmpty())
        m_session.msgBox(m_evaluation.stopped());
}

void FrmUProfile::showResults(const QString& status)
{
    m_form.setText(u"lblEvalStatus"_s, status);
    m_form.setText(u"txtExample"_s, fieldtext::toShown(m_evaluation.report));
    std::vector<ListRow> positions;
    for (const PositionMatch& match : m_evaluation.positions())
        positions.push_back(
            {u'P' + QString::number(match.key),
             {match.title, shownIndex(match.wordMatchIndex), shownIndex(match.sentenceMatchIndex)},
             {},
             {{}, match.wordMatchIndex, match.sentenceMatchIndex}});
    if (positions.size() != m_positions.rows().size())
        m_positions.setRows(std::move(positions));
    std::vector<ListRow> occupations;
    for (const int number : m_evaluation.passed())
        occupations.push_back(
            {u'O' + QString::number(number), {m_evaluation.occupations().at(number).Title}, {}});
    if (occupations.size() != m_occupations.rows().size())
        m_occupations.setRows(std::move(occupations));
}

void FrmUProfile::showHints()
{
    if (!m_verbsRead) {
        m_verbsRead = true;
        try {
            for (const QString& verb : loadDictionary(m_session.folder(), u"R-AC.jwd"_s))
                m_verbs.append(verb.toLower());
        } catch (const EvaluationStopped&) {
            // Without the file the evaluation says so; the other hints need none.
        }
    }
    m_form.setText(
        u"lblHints"_s,
        profilewords::hints(text(u"txtP"_s), text(u"txtA"_s), text(u"txtR"_s), m_verbs).join(u'\n'));
}

std::vector<WordMark> FrmUProfile::marks(const QString& control) const
{
    if (text(u"chkMark"_s) != u"1")
        return {};
    return profilewords::marks(text(control), m_evaluation.matched());
}

bool FrmUProfile::lvwPositionsDblClick(int row)
{
    if (row < 0 || row >= m_positions.rowCount())
        return false;
    const Key key = m_positions.rows()[static_cast<size_t>(row)].key.mid(1).toShort();
    const RecordSet position = dataJW().getPositionByKey(key);
    if (position.isEmpty()) {
        m_session.msgBox(tr("This position is not in the database any more."));
        return false;
    }
    if (!mayLeave())
        return false;
    const QString company = dataJW().getCompanyNameByKey(position.key(u"CompanyKey").value_or(0));
    emit positionWanted(key, company, position.text(u"Title"));
    return true;
}

void FrmUProfile::lvwOccupationsClick(int row)
{
    if (row < 0 || row >= m_occupations.rowCount())
        return;
    const int number = m_occupations.rows()[static_cast<size_t>(row)].key.mid(1).toInt();
    m_form.setText(u"rtf"_s, fieldtext::toShown(m_evaluation.occupations().at(number).Notes));
}
