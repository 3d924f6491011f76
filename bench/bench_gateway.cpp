// What the gateway costs on top of the engine: one contact read by its key, through the whole gateway and
// with the same statement on the engine's bare interface.
#include "base/clock.h"
#include "base/silentports.h"
#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <chrono>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int contacts = 15000;

/// Ports of a run that nobody sits before.
class NoPrompts : public SilentPrompts
{
public:
    Answer msgBox(const QString& text, Buttons, const QString&) override
    {
        throw std::runtime_error(text.toStdString());
    }
};

/// A store full of contacts whose columns are as long as lifelike ones.
class FullStore
{
public:
    FullStore()
    {
        Database::create(m_folder.path() + u"/Postledger.db");
        m_session = std::make_unique<Session>(m_folder.path(), systemClock(), m_prompts, m_desktop);
        engine::execute(
            data().database().handle(),
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" +
                QByteArray::number(contacts) +
                ") INSERT INTO Contact(FirstName,LastName,Title,AddressKey,Department,HiringMgr,"
                "BestMedium,ContactTime,Notes,LastContact,EventKey,ContactList,DocumentList,CompanyKey,"
                "ContactLevel,EntryDate) SELECT 'Marianne','Longstreet'||i,'Head of scheduling',i,"
                "'Operations','Yes','Phone','mornings before ten','Met at the transport fair; knows the"
                " planner we spoke with and offered to pass the letter on.','2026-10-0'||(1+i%9),0,"
                "'12,7,'||i,'3,4',i,37,'2026-01-02' FROM n");
    }
    DataJW& data() { return m_session->dataJW(); }

private:
    QTemporaryDir m_folder;
    NoPrompts m_prompts;
    SilentDesktop m_desktop;
    std::unique_ptr<Session> m_session;
};

using Seconds = std::chrono::duration<double>;

template<class Work> double secondsOf(const Work& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return Seconds(std::chrono::steady_clock::now() - begin).count();
}

int keyAt(int i)
{
    return 1 + i * 7919 % contacts; // a prime step walks over the whole table
}

void readThroughGateway(DataJW& data, int key)
{
    RecordSet contact = data.getContactDataByKey(static_cast<Key>(key));
    for (int column = 0; column < contact.columnCount(); ++column)
        benchmark::DoNotOptimize(contact.text(column));
}

void readBare(sqlite3_stmt* statement, int key)
{
    sqlite3_bind_int(statement, 1, key);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
    }
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
}

/// Both ways take turns in short batches, so that a drifting machine drifts for both. Inside an action the
/// engine asks the file system for no lock at each read, and the gateway's own share shows best.
void contactByKey(benchmark::State& state)
{
    FullStore store;
    DataJW& data = store.data();
    const auto bare = engine::prepare(data.database().handle(),
                                      dialect::translate(u"Select * from Contact where ContactKey=1").sql);
    std::optional<Action> action;
    if (state.range(0) != 0)
        action.emplace(data);
    constexpr int batch = 100;
    double bareSeconds = 0;
    double gatewaySeconds = 0;
    int at = 0;
    for (auto _ : state) {
        bareSeconds += secondsOf([&] {
            for (int i = 0; i < batch; ++i)
                readBare(bare.get(), keyAt(at + i));
        });
        gatewaySeconds += secondsOf([&] {
            for (int i = 0; i < batch; ++i)
                readThroughGateway(data, keyAt(at + i));
        });
        at = (at + batch) % contacts;
    }
    const double calls = static_cast<double>(state.iterations()) * batch;
    state.counters["bare_us"] = bareSeconds / calls * 1e6;
    state.counters["gateway_us"] = gatewaySeconds / calls * 1e6;
    state.counters["ratio"] = gatewaySeconds / bareSeconds;
}

BENCHMARK(contactByKey)
    ->ArgName("in_action")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(1.0)
    ->Repetitions(3)
    ->ReportAggregatesOnly();

} // namespace
