#include "app/consoleprompts.h"

#include "app/output.h"

namespace {

/// A failure's message is the log's entry: description, number, source, the caller's text, a closing line. On
/// a terminal the description says it; where a mere condition is reported there is none, and the caller's
/// text does.
QString essence(const QString& text)
{
    const QString prefix = QStringLiteral("Error Occurred :");
    if (!text.startsWith(prefix))
        return text;
    const QStringList lines = text.mid(prefix.size()).split(QStringLiteral("\r\n"));
    if (!lines.first().isEmpty())
        return lines.first();
    QStringList said = lines.mid(3);
    said.removeAll(QStringLiteral("-------"));
    return said.join(u'\n');
}

} // namespace

Answer ConsolePrompts::msgBox(const QString& text, Buttons buttons, const QString& title)
{
    printError(essence(text));
    return SilentPrompts::msgBox(text, buttons, title);
}
