// What finding and showing cost on a full campaign, beside bare scans of the same columns.
#include "base/clock.h"
#include "base/silentports.h"
#include "desktop/pdffile.h"
#include "generate.h"
#include "measure.h"
#include "output/findscan.h"
#include "output/reports.h"
#include "output/searchkinds.h"
#include "store/engine/background.h"
#include "store/engine/database.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <sqlite3.h>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int tries = 7;

class Silent : public SilentPrompts, public SilentDesktop
{
};

/// One text scanned in every field of a kind, beside as many LIKE scans that return the keys.
void benchKeySearch(Session& session, Reading& reading, const char* kindName, const QString& text)
{
    const SearchKind& kind = *keysearch::kind(QString::fromLatin1(kindName));
    std::vector<double> ratios;
    for (int i = 0; i < tries; ++i) {
        size_t found = 0;
        const double ours = measure::milliseconds([&] {
            for (const QString& field : kind.fields)
                found += session.dataJW().getKSearch(kind.table, field, text).size();
        });
        const double bare = measure::milliseconds([&] {
            for (const QString& field : kind.fields) {
                const auto keys = engine::prepare(
                    reading.connection(), QString(u"SELECT "_s + kind.table + u"Key FROM " + kind.table +
                                                  u" WHERE " + field + u" LIKE '%" + text + u"%'")
                                              .toUtf8());
                while (sqlite3_step(keys.get()) == SQLITE_ROW)
                    sqlite3_column_text(keys.get(), 0);
            }
        });
        ratios.push_back(ours / bare);
    }
    measure::printRatios(qPrintable(u"KeySearch "_s + kind.name), ratios, 1.5);
}

/// Reads every column that find anything looks at, and does nothing with it.
void bareScan(Reading& reading)
{
    for (const QByteArray& sql : findscan::statements()) {
        const auto rows = engine::prepare(reading.connection(), sql);
        const int columns = sqlite3_column_count(rows.get());
        while (sqlite3_step(rows.get()) == SQLITE_ROW) {
            for (int i = 0; i < columns; ++i)
                sqlite3_column_text(rows.get(), i);
        }
    }
}

void benchFind(Reading& reading, const QString& typed)
{
    const WordFinder finder(typed);
    std::vector<double> ratios;
    std::vector<double> first;
    for (int i = 0; i < tries; ++i) {
        QElapsedTimer clock;
        clock.start();
        double firstHit = -1;
        const double ours = measure::milliseconds([&] {
            findscan::words(reading, finder, [&](const FindPiece&) {
                if (firstHit < 0)
                    firstHit = static_cast<double>(clock.nsecsElapsed()) / 1e6;
            });
        });
        first.push_back(firstHit);
        ratios.push_back(ours / measure::milliseconds([&] { bareScan(reading); }));
    }
    measure::printRatios(qPrintable(u"find \""_s + typed + u'"'), ratios, 1.5);
    measure::report(qPrintable(u"  its first hits"_s), first, 50);
}

void benchReport(Session& session, const QString& folder)
{
    QString text;
    measure::report(
        "contact report as text",
        measure::milliseconds(3, [&](int) { text = *reports::build(ReportKind::Contact, session); }), 3000);
    const ReportDocument pages = reports::document(text, reports::header(ReportKind::Contact, session), true);
    measure::report("contact report as PDF",
                    measure::milliseconds(
                        3, [&](int) { static_cast<void>(pdffile::write(pages, folder + u"/report.pdf")); }),
                    10000);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%-58s %7.1f MB   (bound 300)\n", "most memory held",
                static_cast<double>(usage.ru_maxrss) / 1024);
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QTemporaryDir folder;
    Database::create(folder.path() + u"/Postledger.db");
    Silent ports;
    Session session(folder.path(), systemClock(), ports, ports);
    generate::campaign(session.dataJW().database(), generate::fullCampaign);
    const std::atomic_bool ended = false;
    Reading reading(session.databasePath(), ended);
    benchKeySearch(session, reading, "Contact", u"quarry"_s);
    benchKeySearch(session, reading, "Contact History", u"quarry"_s);
    for (const QString& typed : {u"quarry"_s, u"gideon budget"_s, u"lind"_s})
        benchFind(reading, typed);
    benchReport(session, folder.path());
    return 0;
}
