// The questionnaire screens: what is shown, and the rank. Asking and storing have a file of their own.
#include "assessment/frmprofile.h"

#include "base/text.h"
#include "store/gateway/datajw.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int pointerStart = 6000;
constexpr double pointerRoom = 1440;

std::vector<FieldRow> rows()
{
    std::vector<FieldRow> all{{u"lblCompanyName"_s, {}, SaveOn::Never},
                              {u"lblSelected"_s, {}, SaveOn::Never},
                              {u"lblMore"_s, {}, SaveOn::Never},
                              {u"lblRank"_s, {}, SaveOn::Never}};
    for (int i = 0; i < FrmProfile::labels; ++i) {
        all.push_back({u"lblCQ%1"_s.arg(i), {}, SaveOn::Never});
        all.push_back({u"lblCQS%1"_s.arg(i), {}, SaveOn::Never});
    }
    return all;
}

} // namespace

FrmProfile::FrmProfile(Session& session, Kind kind, Doors doors)
    : m_session(session)
    , m_kind(kind)
    , m_doors(std::move(doors))
    , m_form(rows())
{
}

bool FrmProfile::load(Key key)
{
    m_key = m_companyKey = key;
    QString position;
    if (isPosition()) {
        const RecordSet row = dataJW().getPositionByKey(key);
        m_companyKey = row.key(u"CompanyKey").value_or(0);
        position = row.text(u"Title");
        if (row.isEmpty())
            m_key = 0;
    }
    const QString company = dataJW().getCompanyNameByKey(m_companyKey);
    if (m_key == 0 || company.isEmpty()) {
        m_session.msgBox(isPosition() ? tr("This position is not in the database any more.")
                                      : tr("This company is not in the database any more."));
        return false;
    }
    const QString name = isPosition() ? QString(position + u", " + company) : company;
    m_form.setText(u"lblCompanyName"_s, name);
    m_form.setText(u"lblSelected"_s, tr("Selected for %1").arg(name));
    show();
    return true;
}

void FrmProfile::show()
{
    m_session.trace(isPosition() ? u"Open Job Profile"_s : u"Opened Company Profile"_s);
    m_templateLoaded = loadTemplate();
    m_highlighted.clear();
    m_changed = false;
    m_questions = dataJW().getCQuestions(type());
    if (m_questions.size() > Template::mostQuestions) {
        m_session.msgBox(
            tr("The database has %1 questions of this kind, and Jobwright can work with %2. The first "
               "%2 are shown. Set preferences again to replace them.")
                .arg(m_questions.size())
                .arg(Template::mostQuestions));
        m_questions.resize(Template::mostQuestions);
    }
    m_selected.assign(static_cast<size_t>(questionCount()), 0);
    showQuestions(m_questions.isEmpty() ? QStringList() : dataJW().getPrefAnswers(type()));
    for (int i = 0; i < questionCount(); ++i) {
        if (i < labels)
            showAnswer(i, dataJW().getProfileAnswers(isPosition(), i + 1, m_key));
        m_selected[static_cast<size_t>(i)] = dataJW().getAnswerNumber(i + 1, isPosition(), m_key);
    }
    emit changed();
}

void FrmProfile::showQuestions(const QStringList& preferred)
{
    for (int i = 0; i < labels; ++i) {
        const bool isThere = i < questionCount();
        m_form.setText(u"lblCQ%1"_s.arg(i),
                       isThere ? QString(m_questions[i] + u"  : " + preferred.value(i)) : QString());
        m_form.setText(u"lblCQS%1"_s.arg(i), {});
        for (const QString& label : {u"lblCQ%1"_s, u"lblCQS%1"_s})
            m_form.setVisible(label.arg(i), isThere);
    }
    const int more = questionCount() - labels;
    m_form.setText(u"lblMore"_s, questionCount() == 0
                                     ? tr("There are no questions yet. Set preferences first.")
                                 : more > 0 ? tr("%1 more questions are asked and not shown here.").arg(more)
                                            : QString());
    m_form.setVisible(u"lblMore"_s, questionCount() == 0 || more > 0);
}

void FrmProfile::showAnswer(int index, const QString& answer)
{
    m_form.setText(u"lblCQS%1"_s.arg(index), answer.isEmpty() ? tr("Data empty") : answer);
    highlight(u"lblCQ%1"_s.arg(index), !answer.isEmpty() && agrees(index));
}

/// An answer agrees when its text is part of the line with the preferred one, the question included: that is
/// how ranks have always been counted.
bool FrmProfile::agrees(int index) const
{
    return m_form.text(u"lblCQ%1"_s.arg(index))
        .contains(m_form.text(u"lblCQS%1"_s.arg(index)), Qt::CaseInsensitive);
}

void FrmProfile::highlight(const QString& label, bool on)
{
    m_highlighted.removeAll(label);
    if (on)
        m_highlighted.append(label);
}

int FrmProfile::rank() const
{
    int sum = 0;
    for (int i = 0; i < qMin(questionCount(), labels); ++i)
        sum += agrees(i) ? 1 : 0;
    return sum;
}

int FrmProfile::pointer() const
{
    if (questionCount() == 0)
        return pointerStart;
    return pointerStart + rank() * static_cast<int>(std::lround(pointerRoom / questionCount()));
}

bool FrmProfile::mayLeave()
{
    return !m_changed ||
           m_session.msgBox(
               tr("The answers that you changed have not been stored. Leave without storing them?"),
               Buttons::YesNoDefaultNo, tr("Changes not saved")) == Answer::Yes;
}
