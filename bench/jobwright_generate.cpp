// Makes a folder with a campaign of any size in it: jobwright_generate FOLDER [COMPANIES]
#include "generate.h"

#include "store/engine/database.h"

#include <QDir>

#include <cstdio>

int main(int argc, char** argv)
{
    const int companies = argc > 2 ? std::atoi(argv[2]) : generate::fullCampaign;
    if (argc < 2 || companies < 1 || companies > generate::fullCampaign) {
        std::fputs("usage: jobwright_generate FOLDER [COMPANIES]   (at most 15000 companies)\n", stderr);
        return 2;
    }
    try {
        const QString folder = QString::fromLocal8Bit(argv[1]);
        if (!QDir().mkpath(folder)) {
            std::fputs("the folder cannot be made\n", stderr);
            return 1;
        }
        const QString path = folder + u"/Postledger.db";
        Database::create(path);
        Database database(path);
        generate::campaign(database, companies);
    } catch (const StoreError& failure) {
        std::fprintf(stderr, "%s\n", qPrintable(failure.description()));
        return 1;
    }
    return 0;
}
