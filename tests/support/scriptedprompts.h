// Prompts whose questions and answers a test lays down beforehand.
#pragma once

#include "base/ports.h"

#include <QTest>

#include <deque>

/// Answers the expected questions in order. An unexpected question, a wrong text or a left-over answer fails
/// the test; nothing ever blocks.
class ScriptedPrompts : public Prompts
{
public:
    ~ScriptedPrompts() override
    {
        for (const Expected& left : m_expected)
            QTest::qFail(qPrintable(u"never asked: " + left.text), __FILE__, __LINE__);
    }

    /// The next question must contain @p text; it gets @p answer.
    void expect(const QString& text, Answer answer = Answer::Ok) { m_expected.push_back({text, answer, {}}); }
    /// The next question for a file or a folder has this title and gets @p path.
    void expectFile(const QString& title, const QString& path)
    {
        m_expected.push_back({title, Answer::Ok, path});
    }
    /// The next company picker has this title and gets @p company, or "" for giving up.
    void expectCompany(const QString& title, const QString& company)
    {
        m_expected.push_back({title, Answer::Ok, company});
    }
    /// The companies that the last picker offered.
    [[nodiscard]] const QStringList& offered() const { return m_offered; }
    /// Takes any question as it comes, with this answer, until the test ends; for sweeps that count failures.
    void acceptAll(Answer answer) { m_default = answer; }
    [[nodiscard]] const QStringList& asked() const { return m_asked; }
    [[nodiscard]] bool done() const { return m_expected.empty(); }
    [[nodiscard]] QString lastTitle() const { return m_lastTitle; }

    Answer msgBox(const QString& text, Buttons, const QString& title) override
    {
        m_asked.append(text);
        m_lastTitle = title;
        if (m_default && m_expected.empty())
            return *m_default;
        return take(text).answer;
    }
    QString openFile(const QString& title, const QString&, const QStringList&) override
    {
        return take(title).path;
    }
    QString saveFile(const QString& title, const QString&, const QStringList&) override
    {
        return take(title).path;
    }
    QString pickFolder(const QString& title, const QString&) override { return take(title).path; }
    QString pickCompany(const QString& title, const QStringList& companies) override
    {
        m_offered = companies;
        return take(title).path;
    }

private:
    struct Expected
    {
        QString text;
        Answer answer;
        QString path;
    };

    Expected take(const QString& text)
    {
        if (m_expected.empty()) {
            QTest::qFail(qPrintable(u"unexpected question: " + text), __FILE__, __LINE__);
            return {text, Answer::Cancel, {}};
        }
        const Expected next = m_expected.front();
        m_expected.pop_front();
        if (!text.contains(next.text))
            QTest::qFail(qPrintable(u"asked \"" + text + u"\" where \"" + next.text + u"\" was expected"),
                         __FILE__, __LINE__);
        return next;
    }

    std::deque<Expected> m_expected;
    std::optional<Answer> m_default;
    QStringList m_asked;
    QStringList m_offered;
    QString m_lastTitle;
};
