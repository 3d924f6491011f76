// What the Pipeline screen costs on a full campaign, window included: opening it, choosing a position, a page
// of bars, another company. Milliseconds of the wall, the middle of several tries, and as a ratio to the
// engine reading the same rows by itself.
#include "base/silentports.h"
#include "generate.h"
#include "measure.h"
#include "program/presenters.h"

#include "base/clock.h"
#include "store/engine/database.h"
#include "store/engine/enginecall.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "views/workbench/workbenchwindow.h"
#include "workbench/pipelinescreen.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <array>
#include <functional>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

/// Ports of a run that nobody sits before.
class Silent : public SilentPrompts, public SilentDesktop, public SilentNavigator
{
};

/// Reads all rows of the statements through the engine's own interface.
double bareRead(sqlite3* connection, std::initializer_list<QByteArray> statements)
{
    return measure::milliseconds([&] {
        for (const QByteArray& sql : statements) {
            const engine::Statement statement = engine::prepare(connection, sql);
            while (sqlite3_step(statement.get()) == SQLITE_ROW) {
                for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
                    sqlite3_column_text(statement.get(), i);
            }
        }
    });
}

/// The workbench on a full campaign, with its window.
class PipelineBench
{
public:
    PipelineBench();
    void open();
    void choosePosition();
    void showPage();
    void chooseCompany();

private:
    /// Each try of @p work and its share that the screen is waited for, beside @p bare.
    void report(const char* what, double bound, int tries, const std::function<void(int)>& work,
                const std::function<double(int)>& bare);
    [[nodiscard]] sqlite3* connection() { return m_session->dataJW().database().handle(); }
    [[nodiscard]] QString company(int number) const { return m_workbench->companyList().at(number); }

    QTemporaryDir m_folder;
    Silent m_ports;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<Presenters> m_presenters;
    FrmData* m_workbench = nullptr;
    std::unique_ptr<QSettings> m_layout;
    std::unique_ptr<WorkbenchWindow> m_window;
};

constexpr int manyTries = 9;
/// Far from the first company, so that nothing is found by being looked at first.
constexpr int someCompany = 7000;

PipelineBench::PipelineBench()
{
    const QString path = m_folder.path() + u"/Postledger.db";
    Database::create(path);
    m_session = std::make_unique<Session>(m_folder.path(), systemClock(), m_ports, m_ports);
    generate::campaign(m_session->dataJW().database(), generate::fullCampaign);
}

void PipelineBench::report(const char* what, double bound, int tries, const std::function<void(int)>& work,
                           const std::function<double(int)>& bare)
{
    std::vector<double> times;
    std::vector<double> ratios;
    for (int i = 0; i < tries; ++i) {
        const double yardstick = bare(i);
        times.push_back(measure::milliseconds([&] {
            work(i);
            QCoreApplication::processEvents();
        }));
        ratios.push_back(times.back() / yardstick);
    }
    measure::printTime(what, times, bound);
    std::printf("   %6.1f times the bare read\n", measure::middle(ratios));
}

void PipelineBench::open()
{
    // Opened for the first time there is nothing from before, so each try has a window of its own.
    const auto freshWindow = [&] {
        m_window.reset();
        m_presenters = std::make_unique<Presenters>(*m_session, m_ports);
        m_workbench = &m_presenters->workbench;
        m_workbench->load();
        m_layout = std::make_unique<QSettings>(m_folder.filePath(u"layout.ini"_s), QSettings::IniFormat);
        m_window = std::make_unique<WorkbenchWindow>(*m_workbench, *m_layout);
        m_window->resize(1180, 800);
        m_window->show();
        QCoreApplication::processEvents();
    };
    report(
        "open the tab the first time", 1500, 3, [&](int) { m_workbench->tabStrip1Click(u"Pipeline"_s); },
        [&](int) {
            freshWindow();
            return bareRead(connection(),
                            {"select CompanyKey, Name from Company order by Name",
                             "select CompanyKey, Title from Position order by CompanyKey, Title",
                             "select PositionKey from Position order by Title"});
        });
}

void PipelineBench::choosePosition()
{
    PipelineScreen& pipeline = m_workbench->pipelineScreen();
    const auto position = [&](int number) {
        const QModelIndex owner = pipeline.tvwHire().findCompany(company(someCompany + number));
        return pipeline.tvwHire().index(0, 0, owner);
    };
    report(
        "choose a position", 50, manyTries, [&](int i) { pipeline.tvwHireClick(position(i)); },
        [&](int i) {
            const QByteArray title = pipeline.tvwHire().text(position(i)).toUtf8();
            return bareRead(connection(), {"select * from Position where Title = '" + title + "'"});
        });
    if (!pipeline.hasPosition())
        std::fputs("no position was shown\n", stderr);
}

void PipelineBench::showPage()
{
    constexpr int bars = PipelineScreen::barsAPage;
    const int pages = m_workbench->pipelineScreen().pageCount();
    const auto first = [&](int i) { return (pages - 1) * i / (manyTries - 1) * bars; };
    report(
        "displayVisual of a page", 20, manyTries,
        [&](int i) { m_workbench->pipelineScreen().displayVisual(first(i), first(i) + bars); },
        [&](int i) {
            return bareRead(connection(), {"select PositionKey from Position order by Title",
                                           "select * from Position where PositionKey in (select PositionKey "
                                           "from Position order by Title limit 10 offset " +
                                               QByteArray::number(first(i)) + ")"});
        });
}

void PipelineBench::chooseCompany()
{
    report(
        "choose another company", 50, manyTries,
        [&](int i) { m_workbench->cmbSelectionClick(company(someCompany + 100 * i)); },
        [&](int i) {
            return bareRead(connection(), {"select * from Company where Name = '" +
                                           company(someCompany + 100 * i).toUtf8() + "'"});
        });
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    PipelineBench bench;
    bench.open();
    bench.choosePosition();
    bench.showPage();
    bench.chooseCompany();
    return 0;
}
