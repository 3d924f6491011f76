// Two contacts that are the same person made one.
#pragma once

#include "base/key.h"
#include "store/session.h"

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

/// Two contacts whose names are equal but for case, accents, signs and further parts ("Mary Ann van Dyke" and
/// "Mary Dyke").
struct ContactPair
{
    Key first = 0;
    Key second = 0;
    QString firstName; ///< as a person reads them, with the company: "Ann Lee (Acme)"
    QString secondName;
};

/// The pairs among all contacts, those of equal names at two companies among them.
std::vector<ContactPair> findDoubles(Session& session);

/// The merge of two contacts: their values side by side, and what moves from the second to the first.
class ContactMerge
{
public:
    /// More histories than these no contact can have.
    static constexpr int mostHistories = 500;

    struct Row
    {
        QString label;  ///< for a person
        QString column; ///< "Contact.Title"
        QString first;
        QString second;
        bool takeSecond = false;
    };
    struct Moves
    {
        int histories = 0; ///< of the second
        int events = 0;
        int links = 0; ///< contacts and positions that name the second
        int documents = 0;
    };

    /// Reads both. isReadable() is false when one of them is not there.
    ContactMerge(Session& session, Key first, Key second);

    [[nodiscard]] bool isReadable() const { return !m_rows.empty(); }
    /// The fields in which they differ or that one of them has. The first's value is taken where it has one.
    [[nodiscard]] const std::vector<Row>& rows() const { return m_rows; }
    void take(int row, bool second) { m_rows[static_cast<size_t>(row)].takeSecond = second; }
    [[nodiscard]] const Moves& moves() const { return m_moves; }
    /// Why they cannot be merged; "" when they can.
    [[nodiscard]] QString refusal() const;
    /// Merges in one action. False when nothing was changed; the user has been told why.
    bool run();

private:
    void readRows();
    void countMoves();
    void writeRows();
    void writeAddress();
    void moveHistories();
    void moveLinks(const QString& table);
    void joinList(const QString& column);
    bool send(const QString& statement);

    Session& m_session;
    Key m_first;
    Key m_second;
    Key m_firstAddress = 0;
    Key m_secondAddress = 0;
    std::vector<Row> m_rows;
    Moves m_moves;
    int m_histories = 0; ///< of both
    bool m_whole = true; ///< every statement so far was run
};
