#include "app/consoleprompts.h"

#include "app/output.h"

namespace {

/// A failure's message is the log's entry: description, number, source, the caller's text, a closing line. On a
/// terminal the description says it; where a mere condition is reported there is none, and the caller's text does.
QString essence(const QString& text)
{
    const QString prefix = QStringLiteral("Error Occurred :");
    if (!text.startsWith(prefix))
        return text;
    const QStringList lines = text.mid(prefix.size()).split(QStringLiteral("\r\n"));
    return lines.first().isEmpty() ? lines.value(3) : lines.first();
}

} // namespace

Answer ConsolePrompts::msgBox(const QString& text, Buttons buttons, const QString&)
{
    printError(essence(text));
    return buttons == Buttons::Ok ? Answer::Ok : Answer::No;
}

QString ConsolePrompts::openFile(const QString&, const QString&, const QStringList&)
{
    return {};
}

QString ConsolePrompts::saveFile(const QString&, const QString&, const QStringList&)
{
    return {};
}

QString ConsolePrompts::pickCompany(const QString&, const QStringList&)
{
    return {};
}
