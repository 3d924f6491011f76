#include "assessment/frmeditor.h"

#include "base/latin1.h"
#include "base/text.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString box(int number)
{
    return u"txtAns%1"_s.arg(number);
}

std::vector<FieldRow> rows()
{
    std::vector<FieldRow> all{{u"txtFileName"_s, {}, SaveOn::Never},
                              {u"txtQuestion"_s, {}, SaveOn::Never},
                              {u"lblCurrQ"_s, {}, SaveOn::Never},
                              {u"lblNote"_s, {}, SaveOn::Never}};
    for (int i = 0; i < FrmEditor::boxes; ++i)
        all.push_back({box(i), {}, SaveOn::Never});
    return all;
}

/// As the template keeps a text: backquotes for apostrophes, and no mark that would divide answers.
QString kept(const QString& typed)
{
    return text::quoteFix(typed).replace(u'#', u' ');
}

} // namespace

FrmEditor::FrmEditor(Session& session)
    : m_session(session)
    , m_form(rows())
{
}

void FrmEditor::load()
{
    m_session.trace(u"Open Profile Editor"_s);
    m_template = {};
    m_changed = false;
    m_path.clear();
    m_shownPath.clear();
    m_form.clear();
    rebuildTree();
}

// --- The file ---------------------------------------------------------------------------------------------

QString FrmEditor::filePath() const
{
    const QString path = m_path.isEmpty() ? u"CompanyTemplate.jwt"_s : m_path;
    return QFileInfo(path).isAbsolute() ? path : m_session.file(path);
}

void FrmEditor::fieldChanged(const QString& control)
{
    if (control != u"txtFileName")
        return;
    // The old name gives way to the new one wherever it stands in the path.
    const QString shown = m_form.text(control);
    m_path = m_shownPath.isEmpty() || m_path.isEmpty() ? shown : QString(m_path).replace(m_shownPath, shown);
    m_shownPath = shown;
}

void FrmEditor::cmdBrowse()
{
    const QString path = m_session.prompts().openFile(tr("Jobwright Profile Editor"), m_session.folder(),
                                                      {tr("Profile Template Files (*.jwt)")});
    if (path.isEmpty())
        return;
    m_form.setText(u"txtFileName"_s, path);
    m_path = m_shownPath = path;
}

void FrmEditor::cmdLoad()
{
    if (!mayLeave())
        return;
    const QString path = filePath();
    if (!QFileInfo::exists(path)) {
        m_session.msgBox(tr("%1 file was not found.  Editor requires").arg(QDir::toNativeSeparators(path)) +
                         text::crlf + tr("this template to profile preferences."));
        return;
    }
    QString problem;
    const Template read = Template::read(path, problem);
    if (!problem.isEmpty()) {
        m_session.msgBox(problem);
        return;
    }
    m_template = read;
    m_changed = false;
    m_form.setText(u"txtFileName"_s, m_path.isEmpty() ? path : m_path);
    m_path = m_shownPath = m_form.text(u"txtFileName"_s);
    rebuildTree();
}

void FrmEditor::cmdSave()
{
    if (!m_path.isEmpty())
        return write();
    const QString path =
        m_session.prompts().saveFile(tr("Jobwright Profile Editor"), m_session.file(u"CompanyTemplate.jwt"_s),
                                     {tr("Profile Template Files (*.jwt)")});
    if (path.isEmpty())
        return;
    m_form.setText(u"txtFileName"_s, path);
    m_path = m_shownPath = path;
    write();
}

void FrmEditor::write()
{
    const QString path = filePath();
    const QString problem = latin1::writeLines(path, m_template.lines());
    m_changed = m_changed && !problem.isEmpty();
    m_session.msgBox(problem.isEmpty() ? tr("%1 has been saved.").arg(QDir::toNativeSeparators(path))
                                       : problem);
}

bool FrmEditor::mayLeave()
{
    if (!m_changed && !isTyped())
        return true;
    return m_session.msgBox(tr("The template has changes that are not in its file. Go on without them?"),
                            Buttons::YesNoDefaultNo, tr("Changes not saved")) == Answer::Yes;
}

// --- The questions ----------------------------------------------------------------------------------------

void FrmEditor::rebuildTree()
{
    m_tree.clear();
    const QModelIndex root = m_tree.add({}, tr("Questions"), u"Root"_s, u"root"_s);
    int number = 0;
    for (const TemplateQuestion& question : m_template.questions) {
        const QString key = u'Q' + QString::number(++number);
        const QModelIndex node = m_tree.add(root, question.text, key, u"question"_s);
        for (qsizetype i = 0; i < question.answers.size(); ++i)
            m_tree.add(node, question.answers[i], key + u'A' + QString::number(i), u"answer"_s);
    }
    select(0);
}

void FrmEditor::tvwQuestionsNodeClick(const QModelIndex& node)
{
    const QString key = m_tree.key(node);
    if (isTyped() &&
        m_session.msgBox(tr("The question that you typed is not in the template yet. Give it up?"),
                         Buttons::YesNoDefaultNo, tr("Changes not saved")) != Answer::Yes) {
        emit changed();
        return;
    }
    // "Q3A1" is answer 1 of question 3.
    select(key == u"Root" ? 0 : key.mid(1).section(u'A', 0, 0).toInt());
}

void FrmEditor::select(int question)
{
    m_selected = question;
    const bool isOne = question >= 1 && question <= static_cast<int>(m_template.questions.size());
    const TemplateQuestion shown =
        isOne ? m_template.questions[static_cast<size_t>(question) - 1] : TemplateQuestion();
    m_form.setText(u"txtQuestion"_s, shown.text);
    for (int i = 0; i < boxes; ++i)
        m_form.setText(box(i), shown.answers.value(i));
    const QStringList beyond = shown.answers.mid(boxes);
    m_form.setText(u"lblNote"_s, beyond.isEmpty()
                                     ? QString()
                                     : tr("Kept beside these six answers: %1").arg(beyond.join(u", "_s)));
    m_form.setText(u"lblCurrQ"_s, isOne ? tr("Question: %1").arg(question) : QString());
    enableButtons();
    emit changed();
}

void FrmEditor::enableButtons()
{
    for (const QString& button : {u"cmdUpdate"_s, u"cmdRemove"_s})
        m_form.setEnabled(button, m_selected > 0);
}

bool FrmEditor::isTyped() const
{
    bool typed = m_form.isDirty(u"txtQuestion"_s);
    for (int i = 0; i < boxes; ++i)
        typed = typed || m_form.isDirty(box(i));
    return typed;
}

/// Takes the question from the boxes; an empty box leaves no gap. False when a sign does not fit into the
/// file.
bool FrmEditor::questionTyped(TemplateQuestion& question, const QStringList& beyond)
{
    question = {kept(m_form.text(u"txtQuestion"_s)), u"M"_s, {}};
    for (int i = 0; i < boxes; ++i) {
        if (const QString answer = kept(m_form.text(box(i))); !answer.isEmpty())
            question.answers.append(answer);
    }
    question.answers += beyond;
    const QString signs = latin1::misfits(question.text + question.answers.join(QChar(u' ')));
    if (signs.isEmpty())
        return true;
    m_session.msgBox(
        tr("A template holds plain Latin-1 text, which has no sign for %1. Please write it in another "
           "way.")
            .arg(signs));
    return false;
}

void FrmEditor::cmdAdd()
{
    if (static_cast<int>(m_template.questions.size()) >= Template::mostQuestions) {
        m_session.msgBox(tr("A template holds %1 questions.").arg(Template::mostQuestions));
        return;
    }
    TemplateQuestion question;
    if (!questionTyped(question, {}))
        return;
    m_template.questions.push_back(question);
    m_changed = true;
    rebuildTree();
}

void FrmEditor::cmdUpdate()
{
    if (m_selected < 1)
        return;
    TemplateQuestion& stored = m_template.questions[static_cast<size_t>(m_selected) - 1];
    TemplateQuestion question;
    if (!questionTyped(question, stored.answers.mid(boxes)))
        return;
    stored = question;
    m_changed = true;
    rebuildTree();
}

void FrmEditor::cmdRemove()
{
    if (m_selected < 1)
        return;
    m_template.questions.erase(m_template.questions.begin() + (m_selected - 1));
    m_changed = true;
    rebuildTree();
}

void FrmEditor::cmdClear()
{
    m_form.setText(u"txtQuestion"_s, {});
    for (int i = 0; i < boxes; ++i)
        m_form.setText(box(i), {});
}
