// Any bytes as a business card: sorted, never a crash, and no line lost but to a later one of its kind.
#include "intake/cardclassifier.h"

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void fail(const char* rule, const QString& line)
{
    std::fprintf(stderr, "%s: %s\n", rule, qPrintable(line));
    std::abort();
}

void require(bool holds, const char* rule, const QString& line)
{
    if (!holds)
        fail(rule, line);
}

/// A line that is in no field has made room for a later one: the last field of its kind is taken.
bool gaveWay(const CardClassifier& classifier, const QString& line, const CardFields& fields)
{
    if (CardClassifier::cityStateZip(line))
        return !fields[CardZip].isEmpty();
    if (const auto phone = classifier.phone(line); phone && !phone->state.isEmpty())
        return !fields[CardPhone3].isEmpty();
    if (CardClassifier::isMail(line))
        return !fields[CardEmail2].isEmpty();
    return CardClassifier::isWeb(line) && !fields[CardUrl2].isEmpty();
}

void check(const CardClassifier& classifier, const QString& text)
{
    const CardFields fields = classifier.classify(text).fields;
    const QStringList address = fields[CardAddress].split(QStringLiteral("\r\n"));
    const QStringList lines = text.split(u'\n');
    for (const QString& line : lines) {
        const bool kept = line.trimmed().isEmpty() || address.contains(line) ||
                          std::find(fields.begin(), fields.end(), line) != fields.end();
        require(kept || gaveWay(classifier, line, fields), "lost", line);
    }
    for (const CardField field : {CardPhone1, CardPhone2, CardPhone3, CardFax}) {
        const auto phone = classifier.phone(fields[field]);
        require(fields[field].isEmpty() || (phone && !phone->state.isEmpty()), "no phone", fields[field]);
    }
    for (const CardField field : {CardEmail1, CardEmail2})
        require(fields[field].isEmpty() || fields[field].contains(u'@'), "no mail", fields[field]);
    for (const CardField field : {CardUrl1, CardUrl2})
        require(!fields[field].contains(u'@'), "mail", fields[field]);
    const auto zip = fields[CardZip].size();
    require(zip == 0 || zip == 5 || zip == 10, "no zip", fields[CardZip]);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const CardClassifier classifier(AreaCodes::parse(u"212 NY\n617 MA\n202 DC\n907 AK"));
    QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    // One kind of line end and of blank, so that the lines can be looked for in the fields.
    for (const QChar end : {QChar(u'\r'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        text.replace(end, u'\n');
    text.replace(QChar(QChar::Nbsp), u' ');
    check(classifier, text);
    AreaCodes::parse(text);
    return 0;
}
