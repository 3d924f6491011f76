#include "assessment/profilewords.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t mostMarks = 2000;
constexpr qsizetype readForHints = 100'000; // more is no profile item, and must not keep the screen waiting
constexpr int longSentence = 35;

QString say(const char* text)
{
    return QCoreApplication::translate("ProfileWords", text);
}

bool isDivider(QChar c)
{
    return c.isSpace() || c == u'-';
}

/// Calls @p take with place and length of each run of characters between blanks and hyphens.
template<typename Take> void eachWord(const QString& text, Take&& take)
{
    for (qsizetype from = 0; from < text.size();) {
        if (isDivider(text[from])) {
            ++from;
            continue;
        }
        qsizetype to = from;
        while (to < text.size() && !isDivider(text[to]))
            ++to;
        if (!take(from, to - from))
            return;
        from = to;
    }
}

/// The verb that stands three times or more; "" when none does.
QString repeatedVerb(const QString& text, const QSet<QString>& verbs)
{
    QHash<QString, int> times;
    QString found;
    eachWord(text, [&](qsizetype from, qsizetype length) {
        QString word = text.mid(from, length).toLower();
        while (!word.isEmpty() && !word.back().isLetter())
            word.chop(1);
        if (verbs.contains(word) && ++times[word] == 3)
            found = word;
        return found.isEmpty();
    });
    return found;
}

int longestSentence(const QString& text)
{
    int longest = 0;
    int words = 0;
    eachWord(text, [&](qsizetype from, qsizetype length) {
        longest = qMax(longest, ++words);
        if (u".?!"_s.contains(text[from + length - 1]))
            words = 0;
        return true;
    });
    return longest;
}

} // namespace

std::vector<WordMark> profilewords::marks(const QString& text, const QHash<QString, int>& matched)
{
    std::vector<WordMark> found;
    eachWord(text, [&](qsizetype from, qsizetype length) {
        QString word = text.mid(from, length).toLower();
        word.remove(u',').remove(u':').remove(u';');
        if (const int kinds = matched.value(word); kinds != 0)
            found.push_back({from, length, kinds});
        return found.size() < mostMarks;
    });
    return found;
}

QStringList profilewords::hints(const QString& problem, const QString& action, const QString& result,
                                const QStringList& verbs)
{
    const QString all = QString(problem + u' ' + action + u' ' + result).left(readForHints);
    if (all.trimmed().isEmpty())
        return {};
    QStringList found;
    static const QRegularExpression number(u"[1-9]"_s);
    if (!all.contains(number))
        found.append(say("No number is named. How many, how much, how long?"));
    if (result.trimmed().isEmpty())
        found.append(say("There is no result yet. What was better afterwards?"));
    if (const QString verb = repeatedVerb(all, QSet<QString>(verbs.begin(), verbs.end())); !verb.isEmpty())
        found.append(
            say("The word “%1” stands here three times or more. Another one would say more.").arg(verb));
    if (const int words = longestSentence(all); words > longSentence)
        found.append(say("One sentence has %1 words. Two shorter ones are easier to read.").arg(words));
    return found;
}
