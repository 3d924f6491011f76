#include "formats/textfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace textfile {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("TextFile", text);
}

/// Letters of this beginning tell UTF-16 without a mark: every other byte is zero.
constexpr qsizetype looked = 256;

QStringDecoder western()
{
    QStringDecoder decoder("windows-1252"); // known where the toolkit was built with ICU
    return decoder.isValid() ? std::move(decoder) : QStringDecoder(QStringConverter::Latin1);
}

std::optional<QStringConverter::Encoding> unmarkedUtf16(const QByteArray& bytes)
{
    const qsizetype length = std::min(bytes.size(), looked) & ~qsizetype(1);
    int even = 0;
    int odd = 0;
    for (qsizetype i = 0; i < length; i += 2) {
        even += bytes[i] == 0 ? 1 : 0;
        odd += bytes[i + 1] == 0 ? 1 : 0;
    }
    const auto most = static_cast<int>(length / 2 * 3 / 4);
    if (length >= 4 && even == 0 && odd > most)
        return QStringConverter::Utf16LE;
    if (length >= 4 && odd == 0 && even > most)
        return QStringConverter::Utf16BE;
    return std::nullopt;
}

QByteArray throughDecoder(QStringDecoder decoder, const QByteArray& bytes)
{
    const QString text = decoder.decode(bytes);
    return text.toUtf8();
}

QByteArray withoutMark(const QByteArray& bytes)
{
    return bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
}

} // namespace

bool read(const QString& path, QByteArray& bytes, QString& problem, qint64 limit)
{
    const QString name = QDir::toNativeSeparators(path);
    const QFileInfo info(path);
    QFile file(path);
    if (!info.exists())
        problem = tr("%1 is not there.").arg(name);
    else if (!info.isFile())
        problem = tr("%1 is not a file.").arg(name);
    else if (!file.open(QIODevice::ReadOnly))
        problem = tr("%1 cannot be read: %2.").arg(name, file.errorString());
    else if (bytes = file.read(limit + 1); file.error() != QFileDevice::NoError)
        problem = tr("%1 cannot be read: %2.").arg(name, file.errorString());
    else if (bytes.size() > limit)
        problem = tr("%1 is larger than %2 MB, more than an import takes.").arg(name).arg(limit >> 20);
    else
        return true;
    return false;
}

QByteArray toUtf8(const QByteArray& bytes, Encoding wanted, Encoding* used)
{
    const auto as = [used](Encoding encoding, const QByteArray& text) {
        if (used)
            *used = encoding;
        return text;
    };
    auto wide = QStringConverter::encodingForData(bytes);
    if (wide == QStringConverter::Utf8)
        wide.reset();
    else if (!wide)
        wide = unmarkedUtf16(bytes);
    if (wanted == Encoding::Utf16 && !wide)
        wide = QStringConverter::Utf16LE;
    if (wide && (wanted == Encoding::Found || wanted == Encoding::Utf16))
        return as(Encoding::Utf16, throughDecoder(QStringDecoder(*wide), bytes));
    const bool valid = QByteArrayView(bytes).isValidUtf8();
    if (wanted == Encoding::Western || (wanted == Encoding::Found && !valid))
        return as(Encoding::Western, throughDecoder(western(), bytes));
    if (valid)
        return as(Encoding::Utf8, withoutMark(bytes));
    return as(Encoding::Utf8, QString::fromUtf8(withoutMark(bytes)).toUtf8()); // wrong bytes become signs
}

QString decoded(const QByteArray& bytes, const QByteArray& charset)
{
    if (!charset.isEmpty()) {
        if (QStringDecoder decoder(charset.constData()); decoder.isValid())
            return decoder.decode(bytes);
    }
    return QString::fromUtf8(toUtf8(bytes));
}

} // namespace textfile
