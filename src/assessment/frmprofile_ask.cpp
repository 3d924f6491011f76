// The questionnaire screens: asking, and storing preferences and answers.
#include "assessment/frmprofile.h"

#include "base/text.h"
#include "store/engine/database.h"
#include "store/files/storecheck.h"
#include "store/gateway/datajw.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// The mark divides the answers of one question in the store.
QString withoutMark(QString text)
{
    return text.replace(u'#', u' ');
}

/// Takes back what the action at hand has done; its end then says so.
void giveUp(DataJW& data)
{
    if (data.isConnected() && data.database().inTransaction())
        data.database().rollbackTransaction();
}

} // namespace

bool FrmProfile::loadTemplate()
{
    const QString name = isPosition() ? u"PositionTemplate.jwt"_s : u"CompanyTemplate.jwt"_s;
    const QString path = m_session.file(name);
    if (!QFileInfo::exists(path)) {
        // The other ending in the first text, and the company in both, are known from every release.
        m_session.msgBox((isPosition()
                              ? tr("PositionTemplate.jwt file was not found.  Questionnaire requires")
                              : tr("CompanyTemplate.dat file was not found.  Questionnaire requires")) +
                         text::crlf + tr("this template to profile company preferences."));
        return false;
    }
    QString problem;
    m_template = Template::read(path, problem);
    if (!problem.isEmpty())
        m_session.msgBox(problem);
    return problem.isEmpty();
}

/// The number of the answer; @p former for a question that is not asked, or that the user leaves as it was.
int FrmProfile::ask(const TemplateQuestion& question, int former, const QString& place, bool& givenUp)
{
    if (question.type != u"M")
        return former;
    const QVariant answer = m_doors.ask({question.text, question.answers, former, place});
    givenUp = !answer.isValid();
    return givenUp ? former : answer.toInt();
}

// --- Preferences ------------------------------------------------------------------------------------------

void FrmProfile::cmdAskQ()
{
    if (m_session.msgBox(tr("Are you sure you want to delete your current choices?"),
                         Buttons::YesNoDefaultNo) != Answer::Yes ||
        !mayLeave())
        return;
    m_templateLoaded = loadTemplate();
    if (!m_templateLoaded)
        return;
    // All is asked first and stored then: nothing waits in the database while the user thinks.
    std::vector<int> preferred = formerPreferences();
    const auto count = m_template.questions.size();
    preferred.resize(count, 0);
    for (size_t i = 0; i < count; ++i) {
        bool givenUp = false;
        preferred[i] = ask(m_template.questions[i], preferred[i],
                           tr("Question %1 of %2").arg(i + 1).arg(count), givenUp);
        if (givenUp)
            return;
    }
    if (storePreferences(preferred))
        show();
}

/// The preferred answers so far, of questions that the template still asks in the same words and place.
std::vector<int> FrmProfile::formerPreferences()
{
    RecordSet rows = dataJW().getExecQueryRecords(
        u"Select QKey,Question,AnswerPref from Question where ProfileType="_s + QString::number(type()));
    std::vector<int> preferred(m_template.questions.size(), 0);
    for (; !rows.atEnd(); rows.next()) {
        const auto place = static_cast<size_t>(rows.key(u"QKey").value_or(0));
        if (place < 1 || place > preferred.size())
            continue;
        const TemplateQuestion& question = m_template.questions[place - 1];
        const int answer = rows.key(u"AnswerPref").value_or(0);
        if (rows.text(u"Question") == text::quoteFix(withoutMark(question.text)) &&
            answer <= question.answers.size())
            preferred[place - 1] = answer;
    }
    return preferred;
}

bool FrmProfile::storePreferences(const std::vector<int>& preferred)
{
    const QString profileType = QString::number(type());
    Action action(dataJW());
    bool stored = dataJW().execQuery(u"Delete * From Question where ProfileType="_s + profileType);
    for (size_t i = 0; i < m_template.questions.size(); ++i) {
        const TemplateQuestion& question = m_template.questions[i];
        QString answers;
        for (const QString& answer : question.answers)
            answers += text::quoteFix(withoutMark(answer)) + u'#';
        stored =
            stored &&
            dataJW().execQuery(
                u"INSERT INTO Question (Qkey,Question, AnswerCount,AnswerPref,Answers,AnswerType,ProfileType)"
                u" VALUES ("_s +
                QString::number(i + 1) + u",'" + text::quoteFix(withoutMark(question.text)) + u"'," +
                QString::number(question.answers.size()) + u',' + QString::number(preferred[i]) + u",'#" +
                answers + u"','" + text::quoteFix(question.type) + u"'," + profileType + u')');
    }
    if (!stored)
        giveUp(dataJW()); // the former preferences stay
    if (action.commit())
        return true;
    m_session.msgBox(tr("The preferences could not be stored. The former ones are as they were."));
    return false;
}

// --- Answers ----------------------------------------------------------------------------------------------

void FrmProfile::lblCQSClick(int index)
{
    if (index < 0 || index >= qMin(questionCount(), labels))
        return;
    // The question as it was asked for the preferences: the template may have changed since.
    const RecordSet row = dataJW().getExecQueryRecords(
        u"Select Question,Answers,AnswerType from Question where ProfileType="_s + QString::number(type()) +
        u" And QKey=" + QString::number(index + 1));
    const QString list = row.text(u"Answers");
    const TemplateQuestion question{row.text(u"Question"), row.text(u"AnswerType"),
                                    list.mid(1, list.size() - 2).split(u'#')};
    bool givenUp = false;
    int& selected = m_selected[static_cast<size_t>(index)];
    const int answer = ask(question, selected, {}, givenUp);
    if (givenUp || answer == 0)
        return;
    m_changed = m_changed || answer != selected;
    selected = answer;
    const QString shown = dataJW().getAnswers(static_cast<Key>(index + 1), type(), answer);
    showAnswer(index, shown);
    highlight(u"lblCQS%1"_s.arg(index), !shown.isEmpty() && agrees(index));
    emit changed();
}

void FrmProfile::cmdUpdateProfile()
{
    if (save())
        emit changed();
}

void FrmProfile::cmdClose()
{
    // Without questions there is nothing to store, and the user has been told.
    if (save() || questionCount() == 0)
        emit closed();
}

bool FrmProfile::save()
{
    if (questionCount() == 0) {
        m_session.msgBox(tr("Set preferences first"));
        return false;
    }
    const QString table = isPosition() ? u"JProfile"_s : u"CProfile"_s;
    if (!haveKeys(m_session, {table}))
        return false;
    const QString key = QString::number(m_key);
    const QString values = key + u",'" + chosenAnswers() + u"'," + QString::number(rank()) + u',' +
                           QString::number(questionCount()) + u",1";
    Action action(dataJW());
    dataJW().delRecord(m_key, table);
    const QString keyField = isPosition() ? u"PositionKey"_s : u"CompanyKey"_s;
    const bool isGone = !dataJW().keyVerification(m_key, keyField, table); // else there would be two
    const bool stored =
        isGone &&
        dataJW().execQuery(
            isPosition()
                ? QString(
                      u"Insert INTO JProfile (PositionKey,Qans,PR,QCount,TemplateKey,CompanyKey) VALUES (" +
                      values + u',' + QString::number(m_companyKey) + u')')
                : QString(u"Insert INTO CProfile (CompanyKey,Qans,PR,QCount,TemplateKey) VALUES (" + values +
                          u')'));
    if (!stored || !markSteps())
        giveUp(dataJW()); // the former answers stay in the database, and these on the screen
    if (!action.commit()) {
        m_session.msgBox(tr("The answers could not be stored. They are still here; please try again."));
        return false;
    }
    m_changed = false;
    return true;
}

/// A questionnaire counts as the research of its position, or of the company for all its positions.
bool FrmProfile::markSteps()
{
    const QString step = isPosition() ? u"PositionResearch"_s : u"CompanyResearch"_s;
    std::vector<Key> keys{m_key};
    if (!isPosition()) {
        keys.clear();
        const QString company = dataJW().getCompanyNameByKey(m_key);
        for (const QString& title : dataJW().getPositionNames(company))
            keys.push_back(dataJW().getPositionKey(title, company));
    }
    bool done = true;
    for (const Key position : keys) {
        const QString where = u" where positionKey="_s + QString::number(position);
        done = dataJW().execQuery(u"Update Position set "_s + step + u"='" + m_session.todayText() + u'\'' +
                                  where) &&
               dataJW().execQuery(u"Update Position set "_s + step + u"Medium=5" + where) && done;
    }
    return done;
}

QString FrmProfile::chosenAnswers() const
{
    QString list = u"#"_s;
    for (const int answer : m_selected)
        list += QString::number(answer) + u'#';
    return list.size() == 1 ? u"##"_s : list;
}

void FrmProfile::cmdTempEdit()
{
    m_doors.edit();
    m_templateLoaded = loadTemplate();
}
