// The company summary: which sentences stand for which figures.
#include "base/dates.h"
#include "support/runtest.h"
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
        // A part that stands for some figures and not for their neighbours.
        const auto edge = [&](const QString& part, const QList<CompanyFigures>& with,
                              const QList<CompanyFigures>& without) {
            for (const CompanyFigures& figures : with)
                row(figures, part);
            for (const CompanyFigures& figures : without)
                row(figures, part, false);
        };
        edge(u"no current available"_s, {entered(5, {.positionCount = 1, .expiredCount = 1})},
             {entered(5, {.positionCount = 1}), entered(5, {.contactCount = 1})});
        // The clause of the last contact stands without any history.
        const int sentinel = int(dates::sentinel.daysTo(today));
        const auto silent = [](int days) { return entered(5, {.contactCount = 1}, days); };
        row(silent(14), u"1 contact at this company., with whom you've last contacted 2 weeks ago."_s);
        row(silent(13), u"last contacted 1 week ago."_s);
        edge(u"with whom"_s, {silent(sentinel - 1)}, {silent(sentinel)});
        edge(u"Contacts at this company are stale."_s, {known(61, 61)}, {known(60, 61), known(61, 60)});
        edge(u"Contacts at this company are fresh."_s, {known(59, 59)}, {known(60, 59), known(59, 60)});
        row(known(61, 61, 0, 2), u"stale.Other contacts are available in your database."_s);
        edge(u" Positions at this"_s, {known(61, 61, 0, 3, 2, 2)}, {known(60, 61, 0, 3, 2, 2)});
        edge(u" Positions data"_s, {known(59, 61)}, {known(60, 61), entered(59)});
        edge(u"data are aged."_s, {known(61, 1)}, {known(60, 1)});
        edge(u"You have ranked this company low"_s, {known(1, 1, 1), known(1, 1, 3)}, {known(1, 1, 0)});
        edge(u"You have ranked this company average"_s, {known(1, 1, 4), known(1, 1, 6)}, {});
        edge(u"You have ranked this company high"_s, {known(1, 1, 7)}, {});
        // Fewer questions' points than interactions, and more than a month of silence.
        edge(u"Contacts with this company have been neglected."_s, {known(1, 31, 2), entered(1, {.rank = 9})},
             {known(1, 30, 2), known(1, 31, 3)});
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

JOBWRIGHT_TEST(TestCompanySummary)
#include "tst_companysummary.moc"
