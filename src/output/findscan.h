// The scan behind "find anything".
#pragma once

#include "base/fold.h"
#include "output/wordfinder.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <functional>
#include <vector>

class Reading;
class Session;

/// The groups of hits, in the order shown.
enum class FindGroup { Due, Company, Position, Contact, History, Event, Document, Profile, Target };

/// One record that was found.
struct FindHit
{
    qint64 key = 0;  ///< of the contact for a history
    QString title;   ///< the record's name
    QString context; ///< what tells it from its namesakes: company, contact, day
    QString place;   ///< name of the field where the words are; "" when the title says it all
    QString excerpt; ///< of that field, on one line
    std::vector<fold::Range> titleMarks; ///< the words in the title
    std::vector<fold::Range> excerptMarks;
};

/// What has been found of one group so far.
struct FindPiece
{
    FindGroup group = FindGroup::Company;
    std::vector<FindHit> hits; ///< the newest records first, findscan::mostShown at most
    int count = 0;             ///< how many records there are in all
};

namespace findscan {

/// Hits of a group that are handed over; the rest is counted.
inline constexpr int mostShown = 50;

/// The heading of a group; the word by which RecordOpener opens its records.
[[nodiscard]] QString heading(FindGroup group);
[[nodiscard]] QString word(FindGroup group);

/// What words() reads, kind by kind, each in one whole walk: what it costs at least.
[[nodiscard]] std::vector<QByteArray> statements();

using Take = std::function<void(FindPiece)>;
/// Looks through all kinds of records for those in which each word occurs. A group is handed over when its
/// first hits are there, and again, whole, when it has been looked through; one without hits is not. Throws
/// StoreError; ends early when the reading is ended.
void words(Reading& reading, const WordFinder& finder, const Take& take);
/// Contacts without an interaction since this day are due for a word, by the session's options.
[[nodiscard]] QDate dueBefore(Session& session);
/// The contacts without an interaction since @p before, those that wait longest first; one that never had any
/// waits since it was entered.
void due(Reading& reading, QDate before, const Take& take);

} // namespace findscan
