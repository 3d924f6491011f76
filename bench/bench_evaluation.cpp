// A run of the word tests over a full campaign beside a bare loop over the engine's C interface, and the
// profile screen with many items.
#include "measure.h"

#include "assessment/frmuprofile.h"
#include "base/silentports.h"
#include "store/engine/database.h"
#include "store/gateway/datajw.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cctype>
#include <string>
#include <unordered_set>

using namespace Qt::StringLiterals;

namespace {

constexpr int positionCount = 30'000;
constexpr int itemCount = 2'000;

const QString problem = u"The warehouse was full and yet stockouts came in nine weeks of every year."_s;
const QString action =
    u"Planned replenishment with three suppliers, set safety stock and led a weekly review"_s;
const QString result = u"Service rose to 98 percent while inventory fell by a fifth in one year."_s;

void fill(DataJW& data, sqlite3* engine)
{
    const Action atOnce(data, Action::NotUndoable());
    data.execQuery(u"Insert into Company(Name) Values('Acme')"_s);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(engine,
                       "INSERT INTO Position(Title,Keyword,Responsibilities,Qualifications,Notes,CompanyKey) "
                       "VALUES('Planner ' || ?1, 'forecast, capacity and service', "
                       "'Keeps the plan of twelve weeks for the plant; works with sales, buyers and the "
                       "warehouse on what to make, "
                       "when to make it and what to leave, and says so in one page a week.', "
                       "'Five years beside a plan of your own. Spreadsheets without fear - and people "
                       "without fear of you.', "
                       "'Heard of it from a former colleague who left last spring for another town.', 1)",
                       -1, &insert, nullptr);
    for (int i = 1; i <= positionCount; ++i) {
        sqlite3_bind_int(insert, 1, i);
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    for (int i = 1; i <= itemCount; ++i)
        data.execQuery(u"Insert into UProfile(Title,Subtitle,Category,Subcategory,Function1) Values('Title "
                       u"%1','Subtitle "
                       "%2','Experience','Full-Time','Text')"_s.arg(i / 10)
                           .arg(i));
}

/// The same columns, split at blanks, each word looked up: what any such run must do at least.
int bareLoop(sqlite3* engine, const std::unordered_set<std::string>& words)
{
    sqlite3_stmt* query = nullptr;
    sqlite3_prepare_v2(engine, "SELECT Keyword,Title,Responsibilities,Qualifications,Notes FROM Position", -1,
                       &query, nullptr);
    int hits = 0;
    std::string word;
    while (sqlite3_step(query) == SQLITE_ROW) {
        for (int column = 0; column < 5; ++column) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(query, column));
            for (; text; ++text) {
                const char c = *text;
                if (c != ' ' && c != '-' && c != '\0') {
                    if (c != ',' && c != ':' && c != ';')
                        word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
                    continue;
                }
                if (word.size() > 3 && words.contains(word))
                    ++hits;
                word.clear();
                if (c == '\0')
                    break;
            }
        }
    }
    sqlite3_finalize(query);
    return hits;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    const QTemporaryDir folder;
    Database::create(folder.filePath(u"Postledger.db"_s));
    const QDir delivered(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data"));
    for (const QString& file : delivered.entryList({u"*.jwd"_s}))
        QFile::copy(delivered.filePath(file), folder.filePath(file));
    SilentPrompts prompts;
    SilentDesktop desktop;
    Session session(folder.path(), systemClock(), prompts, desktop);
    DataJW& data = session.dataJW();
    sqlite3* const engine = data.database().handle();
    fill(data, engine);

    std::unordered_set<std::string> words;
    for (const QString& word : DataJW::splitWords(QString(problem + u' ' + action + u' ' + result)))
        words.insert(word.toLower().toStdString());
    constexpr int tries = 5;
    double longestStep = 0;
    std::vector<double> ratios;
    volatile int hits = 0;
    for (int i = 0; i < tries; ++i) {
        const double bare = measure::milliseconds([&] { hits = bareLoop(engine, words); });
        Evaluation evaluation(session);
        auto last = std::chrono::steady_clock::now();
        const double ours = measure::milliseconds([&] {
            last = std::chrono::steady_clock::now();
            evaluation.run(problem, action, result, [&](const QString&, int, int) {
                const auto now = std::chrono::steady_clock::now();
                longestStep =
                    std::max(longestStep, std::chrono::duration<double, std::milli>(now - last).count());
                last = now;
                return true;
            });
        });
        ratios.push_back(ours / bare);
    }
    measure::printRatios("evaluation / bare loop", ratios, 1.5);
    measure::report("longest time between two looks for Esc", {longestStep}, 100);

    FrmUProfile profile(session);
    measure::report("profile with 2000 items opens",
                    measure::milliseconds(tries, [&](int) { profile.load(); }), 300);
    const QAbstractItemModel& tree = profile.tvwUProfile();
    QModelIndex leaf = tree.index(0, 0);
    while (tree.rowCount(leaf) > 0)
        leaf = tree.index(0, 0, leaf);
    profile.tvwUProfileNodeClick(leaf);
    measure::report("leaving the title, tree included",
                    measure::milliseconds(tries,
                                          [&](int i) {
                                              profile.form().edit(u"txtTitle"_s, u"Renamed %1"_s.arg(i));
                                              profile.fieldLeft(u"txtTitle"_s);
                                          }),
                    20);
    return 0;
}
