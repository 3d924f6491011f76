// Painting a report onto sheets of paper or into a file.
#pragma once

#include "base/paper.h"

#include <QPagedPaintDevice>

/// Paints one document sheet by sheet, so that a thousand pages need no more memory than one.
class PagePainter
{
public:
    /// False when nothing could be painted (the file or printer refuses) or @p step ended the work.
    static bool paint(QPagedPaintDevice& device, const ReportDocument& document,
                      const Paper::Step& step = {});
};
