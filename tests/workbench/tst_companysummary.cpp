// The company summary: which sentences stand for which figures.
#include "base/dates.h"
#include "workbench/companysummary.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QDate today(2026, 11, 22);

/// A company without anything, entered some days ago.
CompanyFigures entered(int daysAgo)
{
    CompanyFigures figures;
    figures.entryDate = today.addDays(-daysAgo);
    figures.lastContact = dates::sentinel;
    return figures;
}

/// Two contacts of which one was reached, and a position.
CompanyFigures known(int daysAgo, int silence)
{
    CompanyFigures figures = entered(daysAgo);
    figures.contactCount = 2;
    figures.positionCount = 1;
    figures.contactedCount = 1;
    figures.interactionCount = 3;
    figures.maxPerContact = 3;
    figures.lastContact = today.addDays(-silence);
    return figures;
}

CompanyFigures with(CompanyFigures figures, const std::function<void(CompanyFigures&)>& change)
{
    change(figures);
    return figures;
}

} // namespace

Q_DECLARE_METATYPE(CompanyFigures)

class TestCompanySummary : public QObject
{
    Q_OBJECT

private slots:
    void wholeText_data()
    {
        QTest::addColumn<CompanyFigures>("figures");
        QTest::addColumn<QString>("text");

        QTest::newRow("entered today, nothing known")
            << entered(0)
            << u"The company has been in your database for 0 week."
               "You have no current available contacts or positions at this company.\n"
               " ---CONTACTS\n"
               "You have no contacts at this company.  You haven't made contact at the company.\n"
               " ---POSITION\n"
               "You have no position vacancies at this company.\n"
               " ---GENERAL\n"
               "Contacts with this company have been neglected."_s;
        QTest::newRow("old, one of two contacts reached once, positions all expired, high rank, target")
            << with(known(70, 61),
                    [](CompanyFigures& f) {
                        f.isTarget = true;
                        f.targetCount = 12;
                        f.interactionCount = f.maxPerContact = 1;
                        f.positionCount = f.expiredCount = 2;
                        f.rank = 7;
                    })
            << u"This is a Target company out of 12 target companies."
               "The company has been in your database for 10 weeks. \n"
               " ---CONTACTS\n"
               "You have entered 2 contacts at this company.Of these contacts, you've communicated with 1 "
               "individual."
               ", with whom you've last contacted 8 weeks ago."
               "  You have interacted with the company a total of 1 times."
               "Contacts at this company are stale.Contact others to rebuild this company in your network.\n"
               " ---POSITION\n"
               "You have 2 position vacancies at this company. All of these are expired."
               " Positions at this company are stale.\n"
               " ---GENERAL\n"
               "You have ranked this company high based on profile."
               "This company's contact and position data are aged."_s;
        QTest::newRow("fresh, several interactions")
            << with(known(7, 6),
                    [](CompanyFigures& f) {
                        f.contactedCount = 2;
                        f.interactionCount = 5;
                        f.positionCount = 3;
                        f.expiredCount = 1;
                        f.rank = 4;
                    })
            << u"The company has been in your database for 1 week.\n"
               " ---CONTACTS\n"
               "You have entered 2 contacts at this company.Of these contacts, you've communicated with 2 "
               "individuals."
               ", with whom you've last contacted 0 week ago."
               "  You have interacted with the company a total of 5 times."
               "With one individual whom you communicated with 3 times."
               "Contacts at this company are fresh.\n"
               " ---POSITION\n"
               "You have 3 position vacancies at this company.1 of these are expired."
               " Positions data at this company are fresh.\n"
               " ---GENERAL\n"
               "You have ranked this company average based on profile."_s;
    }

    void wholeText()
    {
        QFETCH(CompanyFigures, figures);
        QFETCH(QString, text);
        QCOMPARE(companySummary(figures, today), text);
    }

    void sentence_data()
    {
        QTest::addColumn<CompanyFigures>("figures");
        QTest::addColumn<QString>("part");
        QTest::addColumn<bool>("written");

        const auto row = [](const char* name, const CompanyFigures& figures, const QString& part,
                            bool written) { QTest::newRow(name) << figures << part << written; };
        row("13 days are one week", entered(13), u"for 1 week."_s, true);
        row("14 days are two weeks, with a blank behind", entered(14), u"for 2 weeks. You"_s, true);
        row("no contact, position open: nothing available is not said",
            with(entered(5), [](auto& f) { f.positionCount = 1; }), u"no current available"_s, false);
        row("no contact, all positions expired: nothing available",
            with(entered(5), [](auto& f) { f.positionCount = f.expiredCount = 1; }),
            u"no current available"_s, true);
        row("a contact, no position: nothing available is not said",
            with(entered(5), [](auto& f) { f.contactCount = 1; }), u"no current available"_s, false);
        row("one contact", with(entered(5), [](auto& f) { f.contactCount = 1; }),
            u"You have entered 1 contact at this company."_s, true);
        row("last contact clause stands without any history",
            with(entered(5),
                 [](auto& f) {
                     f.contactCount = 1;
                     f.lastContact = today.addDays(-14);
                 }),
            u"1 contact at this company., with whom you've last contacted 2 weeks ago."_s, true);
        row("13 days since contact are one week", known(5, 13), u"last contacted 1 week ago."_s, true);
        row("the empty date is no contact", entered(5), u"with whom"_s, false);
        row("the day after the empty date is one",
            with(entered(5), [](auto& f) { f.lastContact = dates::sentinel.addDays(1); }), u"with whom"_s,
            true);

        const QString stale = u"Contacts at this company are stale."_s;
        const QString fresh = u"Contacts at this company are fresh."_s;
        row("61 and 61 days: stale", known(61, 61), stale, true);
        row("60 and 61 days: not stale", known(60, 61), stale, false);
        row("61 and 60 days: not stale", known(61, 60), stale, false);
        row("59 and 59 days: fresh", known(59, 59), fresh, true);
        row("60 and 59 days: not fresh", known(60, 59), fresh, false);
        row("59 and 60 days: not fresh", known(59, 60), fresh, false);
        row("stale with others to turn to", with(known(61, 61), [](auto& f) { f.maxPerContact = 2; }),
            u"stale.Other contacts are available in your database."_s, true);

        const auto expired = [](auto& f) { f.positionCount = f.expiredCount = 2; };
        row("positions expired at 60 days: not stale", with(known(60, 61), expired), u" Positions at this"_s,
            false);
        row("positions expired at 61 days: stale", with(known(61, 61), expired), u" Positions at this"_s,
            true);
        row("position at 59 days: fresh", known(59, 61), u" Positions data"_s, true);
        row("position at 60 days: not fresh", known(60, 61), u" Positions data"_s, false);
        row("no position at 59 days: no verdict", entered(59), u" Positions data"_s, false);
        row("61 days: aged", known(61, 1), u"data are aged."_s, true);
        row("60 days: not aged", known(60, 1), u"data are aged."_s, false);

        const auto ranked = [](Key rank) { return with(known(1, 1), [rank](auto& f) { f.rank = rank; }); };
        row("rank 0: no sentence", ranked(0), u"You have ranked"_s, false);
        row("rank 1: low", ranked(1), u"company low"_s, true);
        row("rank 3: low", ranked(3), u"company low"_s, true);
        row("rank 4: average", ranked(4), u"company average"_s, true);
        row("rank 6: average", ranked(6), u"company average"_s, true);
        row("rank 7: high", ranked(7), u"company high"_s, true);

        const QString neglected = u"Contacts with this company have been neglected."_s;
        row("ratio below 1 after 31 days: neglected", with(known(1, 31), [](auto& f) { f.rank = 2; }),
            neglected, true);
        row("ratio below 1 after 30 days: not neglected", with(known(1, 30), [](auto& f) { f.rank = 2; }),
            neglected, false);
        row("ratio of exactly 1: not neglected", with(known(1, 31), [](auto& f) { f.rank = 3; }), neglected,
            false);
        row("no interaction counts as ratio 0 whatever the rank",
            with(entered(1), [](auto& f) { f.rank = 9; }), neglected, true);
    }

    void sentence()
    {
        QFETCH(CompanyFigures, figures);
        QFETCH(QString, part);
        QFETCH(bool, written);
        const QString text = companySummary(figures, today);
        QVERIFY2(text.contains(part) == written, qPrintable(text));
    }
};

QTEST_GUILESS_MAIN(TestCompanySummary)
#include "tst_companysummary.moc"
