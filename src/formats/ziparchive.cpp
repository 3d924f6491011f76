#include "formats/ziparchive.h"

#include <QCoreApplication>

#include <zip.h>

#include <memory>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("ZipArchive", text);
}

/// Below this size the ratio says nothing.
constexpr zip_uint64_t small = 1 << 20;

} // namespace

ZipArchive::ZipArchive(const QByteArray& bytes, qint64 largestPart, qint64 largestRatio)
    : m_bytes(bytes)
    , m_largestPart(largestPart)
    , m_largestRatio(largestRatio)
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source =
        zip_source_buffer_create(m_bytes.constData(), static_cast<zip_uint64_t>(m_bytes.size()), 0, &error);
    if (source)
        m_archive = zip_open_from_source(source, ZIP_RDONLY, &error);
    if (source && !m_archive)
        zip_source_free(source);
    if (!m_archive)
        m_problem =
            tr("The file is no sound workbook: %1.").arg(QString::fromUtf8(zip_error_strerror(&error)));
    zip_error_fini(&error);
}

ZipArchive::~ZipArchive()
{
    if (m_archive)
        zip_discard(m_archive);
}

QString ZipArchive::read(const QString& part, QByteArray& bytes)
{
    const QByteArray name = part.toUtf8();
    zip_stat_t facts;
    if (!m_archive || zip_stat(m_archive, name.constData(), ZIP_FL_NOCASE, &facts) != 0)
        return tr("The workbook lacks its part %1.").arg(part);
    if (facts.valid & ZIP_STAT_ENCRYPTION_METHOD && facts.encryption_method != ZIP_EM_NONE)
        return tr("The workbook is locked with a password. Please save it without one and try again.");
    const auto limit = static_cast<zip_uint64_t>(m_largestPart);
    const bool swells = facts.size > small && facts.size / std::max<zip_uint64_t>(facts.comp_size, 1) >
                                                  static_cast<zip_uint64_t>(m_largestRatio);
    const QString tooLarge =
        tr("The part %1 of the workbook would take more than an import may: it was not unpacked.").arg(part);
    if (facts.size > limit || swells)
        return tooLarge;
    const auto close = [](zip_file_t* file) { zip_fclose(file); };
    const std::unique_ptr<zip_file_t, decltype(close)> file(zip_fopen_index(m_archive, facts.index, 0),
                                                            close);
    if (!file)
        return tr("The part %1 of the workbook cannot be unpacked.").arg(part);
    bytes.resize(static_cast<qsizetype>(facts.size)); // the directory may lie: no byte more is read
    const zip_int64_t got = zip_fread(file.get(), bytes.data(), facts.size);
    char more = 0;
    if (got < 0 || static_cast<zip_uint64_t>(got) != facts.size || zip_fread(file.get(), &more, 1) != 0)
        return tr("The part %1 of the workbook is damaged.").arg(part);
    return {};
}
