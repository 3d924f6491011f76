// The tab strip as a table.
#pragma once

#include <QString>

#include <vector>

/// One tab with the frame it shows; its key is also the screen's name.
struct ScreenTab
{
    QString key;
    QString frame;
    QString text;
    QString icon;
};

/// What stands behind the workbench's buttons, in the order shown.
namespace workbenchtools {

[[nodiscard]] std::vector<ScreenTab> tabs();
/// The picture of the kind of record that the "new" button makes, by the presenter's word for it ("newco").
[[nodiscard]] QString newPicture(const QString& newImage);

} // namespace workbenchtools
