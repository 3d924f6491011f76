// What writing and reading a campaign file costs: per record at two sizes, and beside the engine's own CSV
// import. Times are of the processor.
#include "base/silentports.h"
#include "generate.h"

#include "base/clock.h"
#include "store/database.h"
#include "store/datajw.h"
#include "store/session.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <pugixml.hpp>

#include <algorithm>
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

struct Times
{
    double write = 0;
    double merge = 0;
    double restore = 0;
};

Times measure(int companies)
{
    Times times;
    Place source;
    generate::campaign(source.data().database(), companies);
    times.write = seconds([&] { source.data().createXML(u"merge.xml"_s, false); });
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    std::printf("%d companies: at most %ld MB after createXML\n", companies, usage.ru_maxrss / 1024);
    source.data().createXML(u"restore.xml"_s, true);
    Place merged;
    times.merge = seconds([&] { merged.data().importXML(source.session->file(u"merge.xml"_s)); });
    Place restored;
    times.restore = seconds([&] { restored.data().importXML(source.session->file(u"restore.xml"_s)); });
    if (merged.session->statusLine() != u"Import Complete" ||
        restored.session->statusLine() != u"Import Complete")
        std::fputs("an import did not complete\n", stderr);
    return times;
}

double middle(std::vector<Times> tries, double Times::*member)
{
    std::ranges::sort(tries, {}, member);
    return tries[tries.size() / 2].*member;
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

/// The same rows through the engine's own import into the same tables, and a bare parse of the file.
void compareWithTheEngine(int companies)
{
    Place source;
    generate::campaign(source.data().database(), companies);
    source.data().createXML(u"merge.xml"_s, false);
    const QString folder = source.folder.path();
    QString dump = u".headers off\n.mode csv\n"_s;
    QString load = u".mode csv\n"_s;
    for (const auto* table : {u"Address", u"Company", u"Contact", u"Position", u"History"}) {
        const QStringView name(table);
        dump += u".once "_s + folder + u'/' + name + u".csv\nselect * from " + name + u";\n";
        load += u".import "_s + folder + u'/' + name + u".csv " + name + u'\n';
    }
    if (!runShell(folder + u"/Postledger.db", dump)) {
        std::puts("no sqlite3 program here: not compared with its .import");
        return;
    }
    Place byEngine;
    const QString target = byEngine.folder.path() + u"/Postledger.db";
    const double import = seconds([&] { runShell(target, load); });
    const double parse = seconds([&] {
        pugi::xml_document document;
        document.load_file(QFile::encodeName(source.session->file(u"merge.xml"_s)).constData());
    });
    Place merged;
    const double merge = seconds([&] { merged.data().importXML(source.session->file(u"merge.xml"_s)); });
    std::printf("merge import %.2f s, .import %.2f s + parse %.2f s: ratio %.2f (bound 3)\n", merge, import,
                parse, merge / (import + parse));
}

void printGrowth(const char* what, double small, double large, int factor)
{
    std::printf("%s: %.3f s and %.3f s: cost per record %.2f times (bound 1.3)\n", what, small, large,
                large / small / factor);
}

} // namespace

int main(int argc, char** argv)
{
    const int large = argc > 1 ? std::atoi(argv[1]) : generate::fullCampaign;
    const int factor = 10;
    // A machine changes its pace within a run: both sizes take turns, and the middle of the tries is taken.
    std::vector<Times> small;
    std::vector<Times> full;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            small.push_back(measure(large / factor));
        full.push_back(measure(large));
    }
    printGrowth("createXML", middle(small, &Times::write), middle(full, &Times::write), factor);
    printGrowth("importXML, merge", middle(small, &Times::merge), middle(full, &Times::merge), factor);
    printGrowth("importXML, restore", middle(small, &Times::restore), middle(full, &Times::restore), factor);
    compareWithTheEngine(large);
    return 0;
}
