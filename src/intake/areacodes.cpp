#include "intake/areacodes.h"

#include <QFile>

namespace {

/// Far more than all numbers of three digits need; a user may put anything under the file's name.
constexpr qint64 longestFile = 1 << 20;

} // namespace

std::optional<AreaCodes> AreaCodes::load(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return parse(QString::fromUtf8(file.read(longestFile)));
}

AreaCodes AreaCodes::parse(QStringView text)
{
    AreaCodes table;
    for (QStringView line : text.split(u'\n', Qt::SkipEmptyParts)) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        const auto blank = line.indexOf(u' ');
        // Without a state a line says nothing: its code counts as unknown, with it or without it.
        if (blank <= 0)
            continue;
        table.m_codes.append(line.left(blank).toString());
        table.m_states.append(line.mid(blank + 1).toString());
    }
    return table;
}

QString AreaCodes::getAreaCode(const QString& text)
{
    return text.left(3);
}

QString AreaCodes::getAreaCodeState(const QString& code) const
{
    return m_states.value(m_codes.indexOf(code));
}

QString AreaCodes::getAreaCodefromState(const QString& state) const
{
    return m_codes.value(m_states.indexOf(state));
}

bool AreaCodes::chkAreaCode(const QString& code, const QString& state) const
{
    return getAreaCodeState(code) == state;
}
