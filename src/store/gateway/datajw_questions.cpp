// Questionnaires: questions with their answers, and what was answered for a company or a position.
#include "store/gateway/datajw_impl.h"

using namespace Qt::StringLiterals;
using gateway::keyOf;

namespace {

/// Answer numbers that a profile is read for; its screens show no more questions.
constexpr int readNumbers = 10;

QString noQuestions(const QString& operation, int type)
{
    return u"DataJW-"_s + operation + u" - " + QString::number(type) +
           u": Profile Type not found or No Questions Available";
}

/// Says CProfile for a position's profile too.
QString noProfile(const QString& operation, const QString& key)
{
    return u"DataJW-"_s + operation + u" - " + key + u": CProfile not found or No CProfiles available";
}

/// Item @p number, from 1, of a list whose items each stand behind a "#"; "" when it has no such item.
QString listItem(const QString& list, int number)
{
    return number < 1 ? QString() : list.section(u'#', number, number);
}

/// The answer number for question @p index in a profile's row, 0 when it was not answered.
Key answerNumber(const RecordSet& profile, int index)
{
    const QString number = listItem(profile.text(u"QAns"), index);
    return number.isEmpty() ? Key(0) : keyOf(QVariant(number));
}

} // namespace

QStringList DataJW::getCQuestions(int type)
{
    return m_impl->guarded(u"DataJW-getCQuestions"_s, QStringList(), [&](auto& call) {
        const QStringList questions = call.texts(
            u"Select * from question where ProfileType = "_s + QString::number(type), u"Question"_s);
        if (questions.isEmpty())
            call.say(noQuestions(u"getCQuestions"_s, type));
        return questions;
    });
}

QStringList DataJW::getPrefAnswers(int type)
{
    return m_impl->guarded(u"DataJW-getPrefAnswers"_s, QStringList(), [&](auto& call) {
        RecordSet rows = call.run(u"Select * from question where ProfileType = "_s + QString::number(type));
        QStringList answers;
        for (; !rows.atEnd(); rows.next())
            answers.append(listItem(rows.text(u"Answers"), keyOf(rows, u"AnswerPref")));
        if (answers.isEmpty())
            call.say(noQuestions(u"getPrefAnswers"_s, type));
        return answers;
    });
}

QString DataJW::getProfileAnswers(bool position, int index, Key key)
{
    return m_impl->guarded(u"DataJW-getProfileAnswers"_s, QString(), [&](auto& call) {
        const QString statement = position ? u"Select * from JProfile where PositionKey="_s
                                           : u"Select * from CProfile where CompanyKey = "_s;
        const RecordSet profile = call.firstRow(statement + gateway::text(key));
        if (profile.isEmpty()) {
            call.say(noProfile(u"getProfileAnswers"_s, gateway::text(key)));
            return QString();
        }
        const Key question = static_cast<Key>(std::min<int>(index, keyOf(profile, u"QCount")));
        return getAnswers(question, position ? 1 : 0, answerNumber(profile, question));
    });
}

Key DataJW::getProfileRank(bool position, Key key)
{
    return m_impl->guarded(u"DataJW-getProfileRank"_s, Key(0), [&](auto& call) {
        const QString statement = position ? u"Select * from JProfile where PositionKey="_s
                                           : u"Select * from CProfile where CompanyKey="_s;
        const RecordSet profile = call.firstRow(statement + gateway::text(key));
        if (profile.isEmpty()) {
            call.say(noProfile(u"getProfileRank"_s, gateway::text(key)));
            return Key(-1);
        }
        return keyOf(profile, u"PR");
    });
}

Key DataJW::getProfileCount(bool position)
{
    return m_impl->guarded(u"DataJW-getProfileCount"_s, Key(0), [&](auto& call) {
        const RecordSet profile =
            call.firstRow(position ? u"Select * from JProfile"_s : u"Select * from CProfile"_s);
        if (profile.isEmpty()) {
            call.say(noProfile(u"getProfileCount"_s, {}));
            return Key(-1);
        }
        return keyOf(profile, u"QCount");
    });
}

Key DataJW::getAnswerNumber(int index, bool position, Key key)
{
    return m_impl->guarded(u"DataJW-getAnswerNumber"_s, Key(0), [&](auto& call) {
        const QString statement = position ? u"Select * from Jprofile where PositionKey="_s
                                           : u"Select * from Cprofile where CompanyKey= "_s;
        const RecordSet profile = call.firstRow(statement + gateway::text(key));
        if (profile.isEmpty())
            call.say(noProfile(u"getAnswerNumber"_s, gateway::text(key)));
        return index > readNumbers ? Key(0) : answerNumber(profile, index);
    });
}

QString DataJW::getAnswers(Key qKey, int type, int number)
{
    return m_impl->guarded(u"DataJW-getAnswers"_s, QString(), [&](auto& call) {
        const RecordSet question =
            call.firstRow(u"Select * from question where ProfileType = "_s + QString::number(type) +
                          u" AND QKey = " + gateway::text(qKey));
        if (question.isEmpty())
            call.say(noQuestions(u"getAnswers"_s, type));
        return listItem(question.text(u"Answers"), number);
    });
}
