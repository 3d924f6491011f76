#include "base/wholefile.h"

#include <QSaveFile>

bool writeAll(QIODevice& device, QByteArrayView bytes)
{
    // A disk that fills takes a part and reports no error; only the next try says what is wrong.
    while (!bytes.isEmpty()) {
        const qint64 written = device.write(bytes.data(), bytes.size());
        if (written <= 0)
            return false;
        bytes = bytes.sliced(written);
    }
    return true;
}

QString writeWholeFile(const QString& path, QByteArrayView bytes)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && writeAll(file, bytes) && file.commit())
        return {};
    return file.errorString();
}
