#include "output/findanything.h"

#include "store/session.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QVariantList listOf(const std::vector<fold::Range>& ranges)
{
    QVariantList list;
    for (const fold::Range& range : ranges)
        list << static_cast<int>(range.from) << static_cast<int>(range.length);
    return list;
}

} // namespace

// --- The list ---------------------------------------------------------------------------------------------

void FindModel::clear()
{
    beginResetModel();
    m_pieces.clear();
    m_rows.clear();
    endResetModel();
}

void FindModel::take(FindPiece piece)
{
    beginResetModel();
    const auto place = std::ranges::lower_bound(m_pieces, piece.group, {}, &FindPiece::group);
    if (place != m_pieces.end() && place->group == piece.group)
        *place = std::move(piece);
    else
        m_pieces.insert(place, std::move(piece));
    rebuild();
    endResetModel();
}

void FindModel::rebuild()
{
    m_rows.clear();
    for (const FindPiece& piece : m_pieces) {
        m_rows.push_back({&piece, nullptr});
        for (const FindHit& hit : piece.hits)
            m_rows.push_back({&piece, &hit});
    }
}

int FindModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

Qt::ItemFlags FindModel::flags(const QModelIndex& index) const
{
    const bool heading = !index.isValid() || !m_rows[static_cast<size_t>(index.row())].hit;
    return heading ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

QString FindModel::shown(const Row& row)
{
    if (!row.hit) {
        const auto held = static_cast<int>(row.piece->hits.size());
        const QString heading = findscan::heading(row.piece->group);
        return held == row.piece->count
                   ? tr("%1 (%2)").arg(heading).arg(held)
                   : tr("%1 (%2, the first %3)").arg(heading).arg(row.piece->count).arg(held);
    }
    QStringList parts{row.hit->title};
    for (const QString& part :
         {row.hit->context,
          row.hit->place.isEmpty() ? row.hit->excerpt : tr("%1: %2").arg(row.hit->place, row.hit->excerpt)}) {
        if (!part.isEmpty())
            parts.append(part);
    }
    return parts.join(u" · "_s);
}

QVariant FindModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Row& row = m_rows[static_cast<size_t>(index.row())];
    static const FindHit none;
    const FindHit& hit = row.hit ? *row.hit : none;
    switch (role) {
    case Qt::DisplayRole:
        return shown(row);
    case HeadingRole:
        return row.hit == nullptr;
    case GroupRole:
        return static_cast<int>(row.piece->group);
    case KeyRole:
        return hit.key;
    case TitleRole:
        return hit.title;
    case ContextRole:
        return hit.context;
    case PlaceRole:
        return hit.place;
    case ExcerptRole:
        return hit.excerpt;
    case TitleMarksRole:
        return listOf(hit.titleMarks);
    case ExcerptMarksRole:
        return listOf(hit.excerptMarks);
    default:
        return {};
    }
}

// --- The search -------------------------------------------------------------------------------------------

FindAnything::FindAnything(Session& session, const RecordOpener& opener)
    : m_session(session)
    , m_opener(opener)
    , m_background(new Background(session.databasePath(), session))
{
    connect(m_background, &Background::finished, this, &FindAnything::ended);
    connect(m_background, &Background::gaveWay, this, [this] {
        m_status = tr("The database was changed meanwhile. Type on to search again.");
        emit changed();
    });
}

FindAnything::~FindAnything()
{
    delete m_background;
}

void FindAnything::search(const QString& typed)
{
    stop();
    m_results.clear();
    const WordFinder finder(typed);
    const auto take = [this](FindPiece piece) {
        m_results.take(std::move(piece));
        emit changed();
    };
    const QDate day = finder.isEmpty() ? findscan::dueBefore(m_session) : QDate();
    m_background->start([=](Reading& reading, const auto& deliver) {
        const auto hand = [&](FindPiece piece) {
            deliver([take, piece = std::move(piece)] { take(piece); });
        };
        finder.isEmpty() ? findscan::due(reading, day, hand) : findscan::words(reading, finder, hand);
    });
    m_status = tr("Searching…");
    emit changed();
}

void FindAnything::stop()
{
    if (!isSearching())
        return;
    m_background->stop();
    ended({});
}

void FindAnything::ended(const QString& failure)
{
    if (!failure.isEmpty())
        m_status = tr("The search failed: %1").arg(failure);
    else
        m_status = m_results.rowCount() > 0 ? tr("Enter opens the record.") : tr("Nothing found.");
    emit changed();
}

bool FindAnything::open(const QModelIndex& index)
{
    if (!index.isValid() || index.data(FindModel::HeadingRole).toBool())
        return false;
    const auto key = toKey(index.data(FindModel::KeyRole).toLongLong());
    return key && m_opener.open(
                      findscan::word(static_cast<FindGroup>(index.data(FindModel::GroupRole).toInt())), *key);
}
