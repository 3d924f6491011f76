#include "workbench/shell.h"

#include "base/text.h"

using namespace Qt::StringLiterals;

Answer Shell::showMessage(const QString& prompt, Buttons buttons, const QString& title)
{
    return m_session.msgBox(prompt, buttons, title);
}

QStringList Shell::csvParse(const QString& keyList)
{
    m_session.trace(u"frmdata - csvParse"_s);
    return text::csvParse(keyList);
}
