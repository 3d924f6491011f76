// Find anything: one box over all that the database holds.
#pragma once

#include "output/findscan.h"
#include "output/recordopener.h"
#include "store/engine/background.h"

#include <QAbstractListModel>
#include <QPointer>

#include <memory>
#include <vector>

class Session;

/// The hits in their groups, a heading before each.
class FindModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Roles {
        HeadingRole = Qt::UserRole, ///< true for a heading
        GroupRole,                  ///< int of a FindGroup
        KeyRole,
        TitleRole,
        ContextRole,
        PlaceRole,
        ExcerptRole,
        TitleMarksRole, ///< QVariantList of from and length in turn
        ExcerptMarksRole,
    };
    using QAbstractListModel::QAbstractListModel;

    void clear();
    /// Takes a group in the place of what was there of it.
    void take(FindPiece piece);
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row
    {
        const FindPiece* piece;
        const FindHit* hit; ///< null for the heading
    };
    [[nodiscard]] static QString shown(const Row& row);
    void rebuild();

    std::vector<FindPiece> m_pieces; ///< in the order of their groups
    std::vector<Row> m_rows;
};

/// Looks for words in all records while they are typed, beside the screen. Without a word it lists the
/// contacts that are due for one.
class FindAnything : public QObject
{
    Q_OBJECT

public:
    /// The opener is copied; the session must outlive the finder.
    FindAnything(Session& session, const RecordOpener& opener);
    ~FindAnything() override;

    [[nodiscard]] FindModel& results() { return m_results; }
    /// What is going on, in a sentence: "Searching…", "12 found", or what went wrong.
    [[nodiscard]] const QString& status() const { return m_status; }
    [[nodiscard]] bool isSearching() const { return m_background && m_background->isRunning(); }

    /// Ends the search at hand and begins another.
    void search(const QString& typed);
    void stop();
    /// Opens the record of a row on its screen; false for a heading, or when the user stays where he is.
    bool open(const QModelIndex& index);

signals:
    void changed();

private:
    void ended(const QString& failure);

    Session& m_session;
    RecordOpener m_opener;
    QPointer<Background> m_background; ///< the session's
    FindModel m_results;
    QString m_status;
};
