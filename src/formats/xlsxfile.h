// Workbooks of spreadsheets (.xlsx), transitional and strict form.
#pragma once

#include "formats/recordtable.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

/// An opened workbook. Nothing of it is run or followed: formulas come as their last results, links and
/// macros are not looked at.
class XlsxFile
{
public:
    struct Sheet
    {
        QString name;
        bool hidden = false;
        QString part; ///< its place in the file
    };
    struct Result
    {
        RecordTable table;
        QString problem; ///< "" or what is wrong, with its cell; the table then holds what came before
    };

    /// The largest part of a workbook that is unpacked, and how many times it may be larger than packed.
    static constexpr qint64 largestPart = qint64(64) << 20;
    static constexpr qint64 largestRatio = 200;
    static constexpr int mostColumns = 2000;

    XlsxFile();
    ~XlsxFile();
    XlsxFile(const XlsxFile&) = delete;
    XlsxFile& operator=(const XlsxFile&) = delete;

    /// True when these bytes are a zip archive or an older program's compound file: no text.
    [[nodiscard]] static bool isWorkbook(const QByteArray& bytes);

    /// Reads the list of sheets. "" or why not, in a sentence.
    QString open(const QByteArray& bytes);
    [[nodiscard]] const std::vector<Sheet>& sheets() const { return m_sheets; }
    /// A sheet's rows. Empty rows are passed over; dates come as "11/5/2026".
    Result read(int sheet);

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
    std::vector<Sheet> m_sheets;
};
