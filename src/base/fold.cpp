#include "base/fold.h"

#include <QStringList>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Letters with a stroke and the like, which no decomposition takes apart.
constexpr std::array<std::pair<char16_t, QStringView>, 11> apart{{{u'ß', u"ss"},
                                                                  {u'ø', u"o"},
                                                                  {u'ł', u"l"},
                                                                  {u'đ', u"d"},
                                                                  {u'ħ', u"h"},
                                                                  {u'ŧ', u"t"},
                                                                  {u'æ', u"ae"},
                                                                  {u'œ', u"oe"},
                                                                  {u'ð', u"d"},
                                                                  {u'þ', u"th"},
                                                                  {u'ı', u"i"}}};

/// One character, a pair of surrogates included, as it is compared.
QString foldOne(QStringView character)
{
    const QString plain = character.toString().normalized(QString::NormalizationForm_KD).toCaseFolded();
    QString folded;
    for (const QChar c : plain.normalized(QString::NormalizationForm_KD)) {
        if (c.isMark())
            continue;
        const auto* const known =
            std::ranges::find(apart, c.unicode(), &std::pair<char16_t, QStringView>::first);
        if (known == apart.end())
            folded += c;
        else
            folded += known->second;
    }
    return folded;
}

/// Calls @p take for each character with its folded form and its place.
template<class Take> void eachFolded(QStringView text, Take&& take)
{
    for (qsizetype i = 0; i < text.size();) {
        const char16_t c = text[i].unicode();
        if (c < 0x80) {
            const QChar small = c >= u'A' && c <= u'Z' ? QChar(c + 32) : QChar(c);
            take(QStringView(&small, 1), i);
            ++i;
            continue;
        }
        const qsizetype size = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        const QString folded = foldOne(text.mid(i, size));
        take(folded, i);
        i += size;
    }
}

} // namespace

QString fold::letters(QStringView text)
{
    QString folded;
    folded.reserve(text.size());
    eachFolded(text, [&](QStringView letters, qsizetype) { folded += letters; });
    return folded;
}

std::vector<fold::Range> fold::find(QStringView text, const QString& folded)
{
    std::vector<Range> found;
    if (folded.isEmpty())
        return found;
    QString all;
    std::vector<qsizetype> origins; // of each folded character
    eachFolded(text, [&](QStringView letters, qsizetype place) {
        all += letters;
        origins.insert(origins.end(), static_cast<size_t>(letters.size()), place);
    });
    origins.push_back(text.size());
    for (qsizetype at = all.indexOf(folded); at >= 0; at = all.indexOf(folded, at + folded.size())) {
        const qsizetype from = origins[static_cast<size_t>(at)];
        const qsizetype last = origins[static_cast<size_t>(at + folded.size() - 1)];
        // A letter's marks behind it belong to it.
        qsizetype end = last + 1;
        while (end < text.size() && (text[end].isLowSurrogate() || text[end].isMark()))
            ++end;
        found.push_back({from, end - from});
    }
    return found;
}

QStringList fold::words(const QString& typed)
{
    return letters(typed.simplified()).split(u' ', Qt::SkipEmptyParts);
}
