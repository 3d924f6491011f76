// What writing and reading a campaign file costs: per record at two sizes, and beside the engine's own CSV
// import. Times are of the processor. A machine changes its pace within a run, so what is compared takes
// turns, and the middle of several ratios counts.
#include "base/silentports.h"
#include "generate.h"
#include "measure.h"

#include "base/clock.h"
#include "store/engine/database.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <pugixml.hpp>

#include <array>
#include <cstdio>
#include <functional>
#include <vector>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

/// Ports of a run that nobody sits before.
class Silent : public SilentPrompts, public SilentDesktop
{
public:
    Answer msgBox(const QString& text, Buttons, const QString&) override
    {
        std::fprintf(stderr, "message: %s\n", qPrintable(text));
        return Answer::Yes;
    }
};

/// A folder with an empty store and a session on it.
struct Place
{
    Place()
    {
        Database::create(folder.path() + u"/Postledger.db");
        session = std::make_unique<Session>(folder.path(), systemClock(), ports, ports);
    }
    DataJW& data() const { return session->dataJW(); }

    QTemporaryDir folder;
    Silent ports;
    std::unique_ptr<Session> session;
};

/// What this process and its ended children took of the processor so far; the machine may have others on it.
double processorTime()
{
    double sum = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        ::getrusage(who, &usage);
        for (const timeval& time : {usage.ru_utime, usage.ru_stime})
            sum += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    }
    return sum;
}

double seconds(const std::function<void()>& work)
{
    const double before = processorTime();
    work();
    return processorTime() - before;
}

/// A made-up campaign with its two files.
class Source
{
public:
    explicit Source(int companies)
    {
        generate::campaign(m_place.data().database(), companies);
        write();
        m_place.data().createXML(u"restore.xml"_s, true);
    }

    double write() const
    {
        return seconds([&] { m_place.data().createXML(u"merge.xml"_s, false); });
    }
    /// Reads a file of this campaign into a new, empty store.
    double read(const QString& name) const
    {
        const Place target;
        const double time = seconds([&] { target.data().importXML(file(name)); });
        if (target.session->statusLine() != u"Import Complete")
            std::fputs("an import did not complete\n", stderr);
        return time;
    }
    [[nodiscard]] QString file(const QString& name) const { return m_place.session->file(name); }
    [[nodiscard]] QString folder() const { return m_place.folder.path(); }

private:
    Place m_place;
};

constexpr int rounds = 3;
constexpr int factor = 10;

/// The cost of a record in a large campaign beside that in small ones: as many small runs as make up the
/// large one, half of them before it and half behind it.
void compareSizes(const char* what, const Source& small, const Source& large,
                  const std::function<double(const Source&)>& work)
{
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        double parts = 0;
        for (int i = 0; i < factor / 2; ++i)
            parts += work(small);
        const double whole = work(large);
        for (int i = factor / 2; i < factor; ++i)
            parts += work(small);
        ratios.push_back(whole / parts);
    }
    measure::printRatios(what, ratios, 1.3);
}

bool runShell(const QString& database, const QString& script)
{
    QProcess shell;
    shell.start(u"sqlite3"_s, {database});
    if (!shell.waitForStarted())
        return false;
    shell.write(script.toUtf8());
    shell.closeWriteChannel();
    return shell.waitForFinished(-1) && shell.exitCode() == 0;
}

constexpr std::array importedTables{u"Address", u"Company", u"Contact", u"Position", u"History"};

/// The engine's own import of the same rows into the same tables of a new store.
double importByEngine(const Source& source)
{
    const Place target;
    QString load = u".mode csv\n"_s;
    for (const QStringView table : importedTables)
        load += u".import "_s + source.folder() + u'/' + table + u".csv " + table + u'\n';
    return seconds([&] { runShell(target.folder.path() + u"/Postledger.db", load); });
}

/// A bare parse of the file.
double parse(const Source& source)
{
    return seconds([&] {
        pugi::xml_document document;
        document.load_file(QFile::encodeName(source.file(u"merge.xml"_s)).constData());
    });
}

void compareWithTheEngine(const Source& source)
{
    QString dump = u".headers off\n.mode csv\n"_s;
    for (const QStringView table : importedTables)
        dump += u".once "_s + source.folder() + u'/' + table + u".csv\nselect * from " + table + u";\n";
    if (!runShell(source.folder() + u"/Postledger.db", dump)) {
        std::puts("no sqlite3 program here: not compared with its .import");
        return;
    }
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const double before = importByEngine(source) + parse(source);
        const double merge = source.read(u"merge.xml"_s);
        const double after = importByEngine(source) + parse(source);
        ratios.push_back(2 * merge / (before + after));
    }
    measure::printRatios("merge beside .import + parse", ratios, 3);
}

} // namespace

int main(int argc, char** argv)
{
    const int companies = argc > 1 ? std::atoi(argv[1]) : generate::fullCampaign;
    const Source small(companies / factor);
    const Source large(companies);
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    std::printf("%d companies: at most %ld MB after createXML\n", companies, usage.ru_maxrss / 1024);
    std::printf("cost of a record, %d companies beside %d:\n", companies, companies / factor);
    compareSizes("createXML", small, large, [](const Source& source) { return source.write(); });
    compareSizes("importXML, merge", small, large,
                 [](const Source& source) { return source.read(u"merge.xml"_s); });
    compareSizes("importXML, restore", small, large,
                 [](const Source& source) { return source.read(u"restore.xml"_s); });
    compareWithTheEngine(large);
    return 0;
}
