#include "formats/sharedfolders.h"

#include "formats/contactcard.h"
#include "formats/textfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("SharedFolders", text);
}

/// A file of cards that is larger is no address book of one person.
constexpr qint64 largest = qint64(64) << 20;

void readFile(const QString& path, OutlookFolder<OutlookContact>& folder)
{
    QByteArray bytes;
    QString problem;
    if (!textfile::read(path, bytes, problem, largest)) {
        folder.problems.append(problem);
        return;
    }
    const vcard::Result file = vcard::read(bytes);
    for (const QString& each : file.problems)
        folder.problems.append(tr("%1, %2.").arg(QFileInfo(path).fileName(), each));
    if (file.cards.empty() && file.problems.isEmpty())
        folder.problems.append(tr("%1 holds no contacts.").arg(QFileInfo(path).fileName()));
    for (const vcard::Card& card : file.cards)
        folder.items.push_back(contactOf(card));
}

} // namespace

OutlookFolder<OutlookContact> SharedFolders::contacts(const QString& place)
{
    OutlookFolder<OutlookContact> folder;
    const QFileInfo info(place);
    if (info.isDir()) {
        const QFileInfoList files = QDir(place).entryInfoList(
            {QStringLiteral("*.vcf"), QStringLiteral("*.vcard")}, QDir::Files | QDir::Readable, QDir::Name);
        if (files.isEmpty())
            folder.failure =
                tr("There are no contacts in %1. Let the other program write its contacts there as "
                   "vCard (.vcf), or choose another folder.")
                    .arg(QDir::toNativeSeparators(place));
        for (const QFileInfo& file : files)
            readFile(file.filePath(), folder);
    } else if (info.exists()) {
        readFile(place, folder);
    } else {
        folder.failure = tr("%1 is not there.").arg(QDir::toNativeSeparators(place));
    }
    std::ranges::stable_sort(folder.items, [](const OutlookContact& a, const OutlookContact& b) {
        return a.lastName.compare(b.lastName, Qt::CaseInsensitive) < 0;
    });
    return folder;
}
