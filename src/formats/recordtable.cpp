#include "formats/recordtable.h"

#include <algorithm>

namespace {

constexpr qsizetype poolLimit = qsizetype(1) << 30;

} // namespace

quint32 RecordTable::endOf(int record) const
{
    const auto next = static_cast<size_t>(record) + 1;
    return next < m_records.size() ? m_records[next].begin : m_begin;
}

int RecordTable::cellCount(int record) const
{
    return static_cast<int>(endOf(record) - m_records[static_cast<size_t>(record)].begin);
}

QByteArrayView RecordTable::bytes(quint32 cell) const
{
    const quint32 begin = cell == 0 ? 0 : m_ends[cell - 1];
    return QByteArrayView(m_pool).sliced(begin, m_ends[cell] - begin);
}

QString RecordTable::cell(int record, int column) const
{
    if (record < 0 || record >= recordCount() || column < 0 || column >= cellCount(record))
        return {};
    return QString::fromUtf8(bytes(m_records[static_cast<size_t>(record)].begin + quint32(column)));
}

QStringList RecordTable::texts(int record) const
{
    QStringList texts;
    for (int column = 0; column < cellCount(record); ++column)
        texts.append(cell(record, column));
    return texts;
}

std::pair<int, int> RecordTable::place(int cell) const
{
    const auto next = std::ranges::upper_bound(m_records, quint32(cell), {}, &Record::begin);
    const auto record = static_cast<int>(next - m_records.begin()) - 1;
    return {record, cell - firstCell(record)};
}

int RecordTable::firstCell(int record) const
{
    return static_cast<int>(m_records[static_cast<size_t>(record)].begin);
}

bool RecordTable::addCell(QByteArrayView utf8)
{
    if (m_pool.size() + utf8.size() > poolLimit || m_ends.size() >= size_t(poolLimit))
        return false;
    m_pool.append(utf8);
    m_ends.push_back(static_cast<quint32>(m_pool.size()));
    return true;
}

void RecordTable::endRecord(int line)
{
    const auto end = static_cast<quint32>(m_ends.size());
    m_records.push_back({m_begin, line});
    m_columns = std::max(m_columns, static_cast<int>(end - m_begin));
    m_begin = end;
}

RecordTable RecordTable::without(int records) const
{
    RecordTable rest;
    for (int record = records; record < recordCount(); ++record) {
        for (int column = 0; column < cellCount(record); ++column)
            rest.addCell(bytes(m_records[static_cast<size_t>(record)].begin + quint32(column)));
        rest.endRecord(line(record));
    }
    return rest;
}

RecordTable RecordTable::transposed() const
{
    RecordTable turned;
    for (int column = 0; column < m_columns; ++column) {
        for (int record = 0; record < recordCount(); ++record) {
            const bool there = column < cellCount(record);
            turned.addCell(there ? bytes(m_records[static_cast<size_t>(record)].begin + quint32(column))
                                 : QByteArrayView());
        }
        turned.endRecord(column + 1);
    }
    return turned;
}
