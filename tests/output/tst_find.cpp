// Find anything, and what happened when.
#include "output/findscan.h"
#include "output/historyspan.h"
#include "store/engine/background.h"
#include "support/campaign.h"
#include "support/runtest.h"
#include "support/table.h"

#include <QSignalSpy>

namespace {

/// "Contact:Ann Lee/Notes=knows acme" a hit, groups apart by ";".
QString shown(const std::vector<FindPiece>& pieces)
{
    QStringList groups;
    for (const FindPiece& piece : pieces) {
        QStringList hits;
        for (const FindHit& hit : piece.hits)
            hits.append(hit.title + (hit.context.isEmpty() ? QString() : QString(u'@' + hit.context)) +
                        (hit.place.isEmpty() ? QString() : QString(u'/' + hit.place + u'=' + hit.excerpt)));
        groups.append(findscan::word(piece.group) + u':' + hits.join(u'+'));
    }
    return groups.join(u';');
}

void loadFoundCampaign(World& world)
{
    loadCampaign(world);
    send(world, {u"Update Contact set AddressKey=2, LastContact='11/20/2026' where ContactKey=3"_s,
                 u"Update Contact set LastContact='6/20/2026', EntryDate='1/1/2026' where ContactKey=1"_s,
                 u"Update Contact set LastContact='12/31/1999', EntryDate='11/1/2026' where ContactKey=4"_s,
                 u"Update Contact set EntryDate='11/21/2026' where ContactKey=5"_s,
                 u"Update History set Details='The Café in Duluth' where HistoryKey='1-1'"_s});
}

} // namespace

class TestFind : public QObject
{
    Q_OBJECT

private slots:
    void words_data()
    {
        table({"typed", "found"},
              {{"several kinds", "acme",
                "Contact:Bob Stone@Zenith/Notes=ACME alumni+Ann Lee@Zenith/Notes=knows acme"},
               {"accents", "cafe", "History:Met at fair@6/10/26 Ann Lee/Details=The Café in Duluth"},
               {"each word, anywhere in the record", "FARGO ann", "Contact:Ann Lee@Borealis/City=Fargo"},
               {"a word that is not there", "ann acme nowhere", ""},
               {"a part of a word", "ispatch", "Profile:Dispatcher Night"},
               {"wildcards are letters", "%", ""},
               {"a quote", "'", ""},
               {"kinds in order", "bor", "Company:Borealis;Target:Borealis"},
               {"an event with its day", "thanks", "Event:Write thanks@11/1/26"},
               {"a document", "letter", "Document:Letter;History:Letter@6/30/26 Ann Lee"}});
    }
    void words()
    {
        QLocale::setDefault(QLocale::c());
        World world;
        loadFoundCampaign(world);
        QFETCH(QString, typed);
        std::vector<FindPiece> pieces;
        const std::atomic_bool ended = false;
        Reading reading(world.session->databasePath(), ended);
        findscan::words(reading, WordFinder(typed),
                        [&](FindPiece piece) { pieces.push_back(std::move(piece)); });
        QFETCH(QString, found);
        QString expected = found;
        // Days are in the form of the user's region.
        for (const char* const day : {"6/10/26", "6/30/26", "11/1/26"})
            expected.replace(QLatin1String(day), dates::shown(dates::parse(QString::fromLatin1(day))->date));
        QCOMPARE(shown(pieces), expected);
    }

    void textsOfAnyKindAreTaken()
    {
        World world;
        loadFoundCampaign(world);
        const std::atomic_bool ended = false;
        Reading reading(world.session->databasePath(), ended);
        for (const QString& typed :
             {QString(10000, u'x'), u"\u202Eevil"_s, u"\u0301\u0302"_s, u"a\0b"_s, u"\xD800"_s})
            findscan::words(reading, WordFinder(typed), [](const FindPiece&) {});
        QVERIFY(WordFinder(u"\u0301\u0302"_s).isEmpty());
    }

    void dueAreThoseThatWaitLongest()
    {
        World world;
        loadFoundCampaign(world);
        std::vector<FindPiece> pieces;
        const std::atomic_bool ended = false;
        Reading reading(world.session->databasePath(), ended);
        findscan::due(reading, QDate(2026, 11, 15),
                      [&](FindPiece piece) { pieces.push_back(std::move(piece)); });
        QCOMPARE(pieces.size(), 1U);
        QStringList names;
        for (const FindHit& hit : pieces.front().hits)
            names.append(hit.title + u' ' + QString::number(hit.key));
        // 2 has no entry date at all; 3 was spoken with and 5 entered within the week.
        QCOMPARE(names.join(u','), u"Bob Stone 2,Cy Abbot 4,Ann Lee 1"_s);
    }

    void spanHasBothDaysAndNames()
    {
        World world;
        loadFoundCampaign(world);
        const auto span = historyspan::read(world.data(), QDate(2026, 6, 10), QDate(2026, 6, 20));
        QStringList found;
        for (const Happened& one : span)
            found.append(one.date.toString(u"d"_s) + one.contact + u'/' + one.company + u'/' + one.topic);
        QCOMPARE(found.join(u','),
                 u"10Ann Lee/Zenith/Met at fair,20Ann Lee/Zenith/Fair follow-up,20Ann Lee/Zenith/Call"_s);
        QVERIFY(historyspan::read(world.data(), QDate(2026, 6, 20), QDate(2026, 6, 10)).empty());
        QVERIFY(historyspan::read(world.data(), {}, QDate(2026, 6, 10)).empty());
    }

    void backgroundEndsBeforeAnAction()
    {
        World world;
        loadFoundCampaign(world);
        auto& background = *new Background(world.session->databasePath(), *world.session);
        QSignalSpy finished(&background, &Background::finished);
        int pieces = 0;
        // A reader that would read for ever holds the file until it is ended.
        background.start([&](Reading& reading, const auto& deliver) {
            deliver([&] { ++pieces; });
            while (!reading.isEnded())
                engine::value(reading.connection(),
                              "SELECT count(*) FROM Contact a, Contact b, Contact c, Contact d");
        });
        QTRY_COMPARE(pieces, 1);
        Action action(world.data());
        QVERIFY(!background.isRunning());
        send(world, {u"Update Company set Notes='x'"_s});
        QVERIFY(action.commit());
        QCOMPARE(finished.count(), 0); // nothing of an ended work arrives
        background.start([](Reading& reading, const auto&) {
            engine::execute(reading.connection(), "DELETE FROM Company");
        });
        QTRY_COMPARE(finished.count(), 1);
        QVERIFY(!finished.front().front().toString().isEmpty()); // it can only read
        QCOMPARE(world.data().getCount(u"Company"_s, true), 2);
    }
};

JOBWRIGHT_TEST(TestFind)
#include "tst_find.moc"
