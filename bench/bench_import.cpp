// What the import costs: a text of contacts beside the engine's own import of the same rows, the memory that
// a large text takes, and the checked load of contact cards.
#include "base/silentports.h"
#include "formats/sharedfolders.h"
#include "formats/tablefile.h"
#include "intake/columnnames.h"
#include "intake/contactload.h"
#include "intake/importmodels.h"
#include "intake/recordimport.h"
#include "measure.h"
#include "store/engine/database.h"
#include "store/gateway/datajw.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

class Silent : public SilentPrompts, public SilentDesktop
{
};

/// A folder with an empty store and a session on it.
struct Place
{
    Place()
    {
        Database::create(folder.path() + u"/Postledger.db");
        session = std::make_unique<Session>(folder.path(), systemClock(), ports, ports);
    }
    QTemporaryDir folder;
    Silent ports;
    std::unique_ptr<Session> session;
};

double cpu()
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

long peakMegabytes()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        std::fprintf(stderr, "%s cannot be written\n", qPrintable(path));
}

QByteArray people(int count)
{
    QByteArray text = "First Name,Last Name,Job Title,Company,Business Street,Business City,Business State,"
                      "Business Postal Code,Business Phone,Mobile Phone,E-mail Address,Notes\r\n";
    for (int i = 0; i < count; ++i) {
        const QByteArray n = QByteArray::number(i);
        text += "First" + n + ",Last" + n + ",Planner,Company " + QByteArray::number(i / 3) + "," + n +
                " Mill Lane,Boston,MA,02139,617-555-0100,617-555-0199,p" + n +
                "@mill.example,\"met, at the fair\"\r\n";
    }
    return text;
}

/// Reads and stores a text as the program does, the copy before it left out.
double import(const Place& place, const QString& path)
{
    const double before = cpu();
    tablefile::Result read = tablefile::read(path, {});
    const ImportFile file = ImportFile::divided(std::move(read.table), 0, true);
    const FieldMap map = columnnames::recognise(file.names);
    RecordImport import(*place.session, file.records, map, file.records.recordCount());
    if (!import.plan(true) || !import.store(false, [](int, int) { return true; }) ||
        import.report().contacts != file.records.recordCount())
        std::fputs("an import did not complete\n", stderr);
    return cpu() - before;
}

bool shell(const QString& database, const QString& commands)
{
    QProcess sqlite;
    sqlite.start(u"sqlite3"_s, {database});
    sqlite.write(commands.toUtf8());
    sqlite.closeWriteChannel();
    return sqlite.waitForFinished(-1) && sqlite.exitCode() == 0;
}

void compareWithTheEngine(const QString& text)
{
    const Place source;
    import(source, text);
    QString dump = u".headers off\n.mode csv\n"_s;
    QString load = u".mode csv\n"_s;
    for (const QStringView table : {u"Address", u"Company", u"Contact"}) {
        const QString file = source.folder.path() + u'/' + table + u".csv";
        dump += u".once "_s + file + u"\nselect * from " + table + u";\n";
        load += u".import "_s + file + u' ' + table + u'\n';
    }
    if (!shell(source.folder.path() + u"/Postledger.db", dump)) {
        std::puts("no sqlite3 program here: not compared with its .import");
        return;
    }
    const auto byEngine = [&] {
        const Place target;
        const double before = cpu();
        shell(target.folder.path() + u"/Postledger.db", load);
        return cpu() - before;
    };
    std::vector<double> ratios;
    for (int round = 0; round < 5; ++round) {
        const double before = byEngine();
        const double ours = import(Place(), text);
        ratios.push_back(2 * ours / (before + byEngine()));
    }
    measure::printRatios("15,000 contacts beside .import", ratios, 3);
}

void timeCheckedLoad(const QString& folder)
{
    QByteArray cards;
    for (int i = 0; i < ContactLoad::mostCandidates; ++i) {
        const QByteArray n = QByteArray::number(i);
        cards += "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Last" + n + ";First" + n + ";;;\r\nORG:Company " + n +
                 "\r\nADR;TYPE=WORK:;;" + n + " Elm;Ames;IA;50010;USA\r\nTEL;TYPE=WORK:1\r\nEND:VCARD\r\n";
    }
    write(folder + u"/cards.vcf", cards);
    const Place place;
    import(place, folder + u"/people.csv");
    const auto load = [&](int) {
        const auto read = SharedFolders().contacts(folder + u"/cards.vcf");
        ContactLoad contacts(*place.session);
        contacts.load(read.items, [](int, int) { return true; });
    };
    measure::report("checked load of 2,000 cards against 15,000 contacts", measure::milliseconds(3, load),
                    2000);
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    const QString large = folder.path() + u"/large.csv";
    write(large, people(100'000));
    {
        tablefile::Result read = tablefile::read(large, {});
        const ImportFile file = ImportFile::divided(std::move(read.table), 0, true);
        std::printf("%-58s %4ld MB   (bound 150: %s)\n", "memory with 100,000 records read", peakMegabytes(),
                    peakMegabytes() <= 150 ? "kept" : "MISSED");
    }
    write(folder.path() + u"/people.csv", people(15'000));
    compareWithTheEngine(folder.path() + u"/people.csv");
    timeCheckedLoad(folder.path());
    return 0;
}
