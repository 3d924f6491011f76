#include "desktop/pdffile.h"

#include "desktop/pagepainter.h"

#include <QPageLayout>
#include <QPdfWriter>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int resolution = 1200;
constexpr int margin = 15; // millimetres

} // namespace

bool pdffile::write(const ReportDocument& document, const QString& path, const Paper::Step& step)
{
    QSaveFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter pages(&file);
        pages.setTitle(document.title);
        pages.setCreator(u"Jobwright"_s);
        pages.setResolution(resolution);
        pages.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Portrait,
                             QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter});
        if (!PagePainter::paint(pages, document, step))
            return false; // what was written beside the file goes
    }
    return file.commit();
}
