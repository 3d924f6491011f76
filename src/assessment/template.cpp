#include "assessment/template.h"

#include "base/latin1.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace {

QString say(const char* text)
{
    return QCoreApplication::translate("Template", text);
}

/// Goes through a template's lines and remembers the first thing that is wrong.
class Walk
{
public:
    Walk(const QStringList& lines, QString& problem)
        : m_lines(lines)
        , m_problem(problem)
    {
    }
    [[nodiscard]] bool good() const { return m_problem.isEmpty(); }
    QString line(const QString& what)
    {
        if (m_next >= m_lines.size() && good())
            m_problem = say("Line %1 is missing: %2 should stand there.").arg(m_next + 1).arg(what);
        return m_lines.value(m_next++);
    }
    int count(const QString& what, int most)
    {
        const QString text = line(what);
        bool isNumber = false;
        const int number = text.trimmed().toInt(&isNumber);
        if (good() && (!isNumber || number < 0 || number > most))
            m_problem = say("Line %1 should be %2, from 0 to %3: “%4”.")
                            .arg(QString::number(m_next), what, QString::number(most), text.left(40));
        return good() ? number : 0;
    }

private:
    const QStringList& m_lines;
    QString& m_problem;
    qsizetype m_next = 0;
};

} // namespace

Template Template::parse(const QStringList& lines, QString& problem)
{
    problem.clear();
    Template found;
    Walk walk(lines, problem);
    const int count = walk.count(say("the number of questions"), mostQuestions);
    for (int i = 0; i < count && walk.good(); ++i) {
        TemplateQuestion question;
        question.text = walk.line(say("a question"));
        question.type = walk.line(say("the type of the answer"));
        const int answers = walk.count(say("the number of answers"), mostAnswers);
        for (int j = 0; j < answers && walk.good(); ++j)
            question.answers.append(walk.line(say("an answer")));
        if (walk.good())
            found.questions.push_back(question);
    }
    return found;
}

Template Template::read(const QString& path, QString& problem)
{
    const latin1::Lines file = latin1::readLines(path);
    if (!file.problem.isEmpty()) {
        problem = file.problem;
        return {};
    }
    Template found = parse(file.lines, problem);
    if (!problem.isEmpty())
        problem = say("The template %1 is broken. %2").arg(QDir::toNativeSeparators(path), problem);
    return found;
}

QStringList Template::lines() const
{
    QStringList all{QString::number(questions.size())};
    for (const TemplateQuestion& question : questions) {
        all << question.text << u"M"_s << QString::number(question.answers.size());
        all << question.answers;
    }
    all << u"END-"_s;
    return all;
}
