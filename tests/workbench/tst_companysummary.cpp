// The company summary: which sentences stand for which figures.
#include "base/dates.h"
#include "support/table.h"
#include "workbench/companysummary.h"

using namespace Qt::StringLiterals;

namespace {

const QDate today(2026, 11, 22);

/// A company entered some days ago, and last reached @p silence days ago, or never.
CompanyFigures entered(int daysAgo, CompanyFigures figures = {}, int silence = -1)
{
    figures.entryDate = today.addDays(-daysAgo);
    figures.lastContact = silence < 0 ? dates::sentinel : today.addDays(-silence);
    return figures;
}

/// The same with two contacts of which one was reached, and with positions.
CompanyFigures known(int daysAgo, int silence, Key rank = 0, Key mostTalks = 3, Key positions = 1,
                     Key expired = 0)
{
    return entered(daysAgo,
                   {.positionCount = positions,
                    .contactCount = 2,
                    .rank = rank,
                    .interactionCount = 3,
                    .maxPerContact = mostTalks,
                    .expiredCount = expired,
                    .contactedCount = 1},
                   silence);
}

} // namespace

Q_DECLARE_METATYPE(CompanyFigures)

class TestCompanySummary : public QObject
{
    Q_OBJECT

private slots:
    void wholeText()
    {
        const CompanyFigures old = entered(70,
                                           {.positionCount = 2,
                                            .contactCount = 2,
                                            .rank = 7,
                                            .interactionCount = 1,
                                            .maxPerContact = 1,
                                            .expiredCount = 2,
                                            .contactedCount = 1,
                                            .isTarget = true,
                                            .targetCount = 12},
                                           61);
        QCOMPARE(
            companySummary(old, today),
            u"This is a Target company out of 12 target companies.The company has been in your database for "
            u"10 "
            "weeks. \n ---CONTACTS\nYou have entered 2 contacts at this company.Of these contacts, you've "
            "communicated with 1 individual., with whom you've last contacted 8 weeks ago.  You have "
            "interacted "
            "with the company a total of 1 times.Contacts at this company are stale.Contact others to "
            "rebuild "
            "this company in your network.\n ---POSITION\nYou have 2 position vacancies at this company. All "
            "of "
            "these are expired. Positions at this company are stale.\n ---GENERAL\nYou have ranked this "
            "company "
            "high based on profile.This company's contact and position data are aged."_s);
    }

    void sentence_data()
    {
        columns<CompanyFigures, QString, bool>("figures", "part", "written");
        int number = 0;
        const auto row = [&](const CompanyFigures& figures, const QString& part, bool written = true) {
            QTest::addRow("%d %s", ++number, qPrintable(part)) << figures << part << written;
        };
        row(entered(0),
            u"for 0 week.You have no current available contacts or positions at this company.\n"_s);
        row(entered(0),
            u"You have no contacts at this company.  You haven't made contact at the company.\n"_s);
        row(entered(0), u"You have no position vacancies at this company.\n"_s);
        row(known(7, 6),
            u"for 1 week.\n ---CONTACTS\nYou have entered 2 contacts at this company.Of these"_s);
        row(entered(7, {.contactCount = 2, .interactionCount = 5, .maxPerContact = 3, .contactedCount = 2},
                    6),
            u"with 2 individuals., with whom you've last contacted 0 week ago.  You have interacted with the "
            u"company a "
            "total of 5 times.With one individual whom you communicated with 3 times.Contacts at this company are"_s);
        row(known(7, 6, 4, 3, 3, 1),
            u"3 position vacancies at this company.1 of these are expired. Positions data at "
            "this company are fresh.\n ---GENERAL\nYou have ranked"_s);
        row(entered(13), u"for 1 week."_s);
        row(entered(14), u"for 2 weeks. You"_s); // the plural has a blank behind
        const QString nothing = u"no current available"_s;
        row(entered(5, {.positionCount = 1}), nothing, false);
        row(entered(5, {.positionCount = 1, .expiredCount = 1}), nothing);
        row(entered(5, {.contactCount = 1}), nothing, false);
        // The clause of the last contact stands without any history.
        const int sentinel = int(dates::sentinel.daysTo(today));
        row(entered(5, {.contactCount = 1}, 14),
            u"1 contact at this company., with whom you've last contacted 2 weeks ago."_s);
        row(entered(5, {.contactCount = 1}, 13), u"last contacted 1 week ago."_s);
        row(entered(5, {.contactCount = 1}, sentinel - 1), u"with whom"_s);
        row(entered(5, {.contactCount = 1}, sentinel), u"with whom"_s, false);
        const QString stale = u"Contacts at this company are stale."_s;
        const QString fresh = u"Contacts at this company are fresh."_s;
        row(known(61, 61), stale);
        row(known(60, 61), stale, false);
        row(known(61, 60), stale, false);
        row(known(59, 59), fresh);
        row(known(60, 59), fresh, false);
        row(known(59, 60), fresh, false);
        row(known(61, 61, 0, 2), u"stale.Other contacts are available in your database."_s);
        row(known(60, 61, 0, 3, 2, 2), u" Positions at this"_s, false);
        row(known(61, 61, 0, 3, 2, 2), u" Positions at this"_s);
        row(known(59, 61), u" Positions data"_s);
        row(known(60, 61), u" Positions data"_s, false);
        row(entered(59), u" Positions data"_s, false);
        row(known(61, 1), u"data are aged."_s);
        row(known(60, 1), u"data are aged."_s, false);
        row(known(1, 1, 0), u"You have ranked"_s, false);
        for (const auto& [rank, word] :
             {std::pair{1, u"low"_s}, {3, u"low"_s}, {4, u"average"_s}, {6, u"average"_s}, {7, u"high"_s}})
            row(known(1, 1, Key(rank)), u"You have ranked this company "_s + word);
        // Neglected: fewer questions' points than interactions, and more than a month of silence.
        const QString neglected = u"Contacts with this company have been neglected."_s;
        row(known(1, 31, 2), neglected);
        row(known(1, 30, 2), neglected, false);
        row(known(1, 31, 3), neglected, false);
        row(entered(1, {.rank = 9}), neglected);
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
