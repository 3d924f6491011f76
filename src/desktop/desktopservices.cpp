#include "desktop/desktopservices.h"

#include "desktop/notes.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

bool hasScheme(const QString& address)
{
    const auto colon = address.indexOf(u':');
    // "x.example:8080" has a port and "C:" is a drive; a scheme holds no dot and is longer.
    return colon > 1 && !address.left(colon).contains(u'.') && !address.left(colon).contains(u'/') &&
           !address.left(colon).contains(u'@');
}

QString withScheme(const QString& address)
{
    if (hasScheme(address))
        return address;
    if (address.startsWith(u'/'))
        return u"file://"_s + address;
    if (address.contains(u'@') && !address.contains(u'/'))
        return u"mailto:"_s + address;
    return u"https://"_s + address;
}

/// Whether one of the desktop's lists of programs has a line "type=program" with a program in it. The lists
/// are read as lines: a settings reader takes the slash in a type for a group.
bool listNames(const QString& path, const QString& type)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray wanted = type.toUtf8() + '=';
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        if (line.startsWith(wanted) && line.size() > wanted.size())
            return true;
    }
    return false;
}

QStringList programLists()
{
    QStringList lists = QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, u"mimeapps.list"_s);
    lists += QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation, u"mimeapps.list"_s);
    lists += QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation, u"mimeinfo.cache"_s);
    return lists;
}

} // namespace

QUrl DesktopServices::cleanAddress(const QString& address)
{
    const QString text = address.trimmed();
    if (text.isEmpty() || text.contains(u'\n'))
        return {};
    const QUrl url(withScheme(text), QUrl::TolerantMode);
    static const QStringList allowed{u"http"_s, u"https"_s, u"mailto"_s, u"file"_s};
    if (!url.isValid() || !allowed.contains(url.scheme()))
        return {};
    const bool isWeb = url.scheme().startsWith("http"_L1);
    return isWeb && url.host().isEmpty() ? QUrl() : url;
}

bool DesktopServices::openUrl(const QString& address)
{
    const QUrl url = cleanAddress(address);
    return url.isValid() && QDesktopServices::openUrl(url);
}

bool DesktopServices::openDocument(const QString& path)
{
    return QFileInfo::exists(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool DesktopServices::startProgram(const QString& program, const QStringList& arguments)
{
    // A viewer outlives the program, and its output is nobody's.
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

bool DesktopServices::canOpen(const QString& ending) const
{
    const QMimeDatabase types;
    const QMimeType type = types.mimeTypeForFile(u"x"_s + ending, QMimeDatabase::MatchExtension);
    if (type.isDefault())
        return false;
    const QStringList names = QStringList{type.name()} + type.aliases();
    const QStringList lists = programLists();
    return std::any_of(lists.cbegin(), lists.cend(), [&names](const QString& list) {
        return std::any_of(names.cbegin(), names.cend(),
                           [&list](const QString& name) { return listNames(list, name); });
    });
}

bool DesktopServices::playSound(const QString& path)
{
    return m_sound.play(path);
}

bool DesktopServices::notify(const QString& title, const QString& text)
{
    return notes::show(title, text);
}
