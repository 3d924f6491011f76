// Reading a zip archive that may be hostile.
#pragma once

#include <QByteArray>
#include <QString>

struct zip;

/// An archive in memory. No part is unpacked beyond a size, nor when it would grow more than a ratio: a small
/// file must not fill the machine.
class ZipArchive
{
public:
    /// @p bytes must outlive the archive.
    ZipArchive(const QByteArray& bytes, qint64 largestPart, qint64 largestRatio);
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    /// "" or why the bytes are no archive.
    [[nodiscard]] const QString& problem() const { return m_problem; }
    /// Unpacks a part. "" or why not, in a sentence.
    QString read(const QString& part, QByteArray& bytes);

private:
    QByteArray m_bytes;
    qint64 m_largestPart;
    qint64 m_largestRatio;
    zip* m_archive = nullptr;
    QString m_problem;
};
