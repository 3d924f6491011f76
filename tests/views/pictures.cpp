// Grabs the workbench for the documents: jobwright_pictures CAMPAIGN.xml COMPANY light|dark OUT.png
#include "views/palettes.h"
#include "views/workbench/workbenchwindow.h"
#include "workbench/bench.h"

#include <QApplication>
#include <QSettings>
#include <QStyleFactory>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(u"1.0.0"_s);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        std::fputs("usage: jobwright_pictures CAMPAIGN.xml COMPANY light|dark OUT.png\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(arguments.at(3) == "dark"_L1 ? palettes::dark() : palettes::light());
    QFont font = QApplication::font();
    font.setPointSize(10);
    QApplication::setFont(font);

    // The day the campaign was recorded, so that a picture taken next year shows the same figures.
    Bench bench(QDateTime(QDate(2026, 11, 22), QTime(9, 30)));
    bench.world.prompts.acceptAll(Answer::Ok);
    bench.data().importXML(arguments.at(1));
    bench.navigator.hasAll = false;
    bench.frm->load();
    QSettings layout(bench.world.folder.filePath(u"layout.ini"_s), QSettings::IniFormat);
    WorkbenchWindow window(*bench.frm, layout);
    window.resize(1180, 800);
    window.show();
    bench.choose(arguments.at(2));
    QCoreApplication::processEvents();
    const bool written = window.grab().save(arguments.at(4));
    if (!written)
        std::fputs("The picture could not be written.\n", stderr);
    window.close();
    return written ? 0 : 1;
}
