// The toolbar and the tab strip as tables.
#pragma once

#include <QString>

#include <utility>
#include <vector>

/// One button of the toolbar; a row with an empty key is a separator.
struct ToolButton
{
    QString key;
    QString text;
    QString icon;
    QString tip;
};

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

[[nodiscard]] std::vector<ToolButton> buttons();
[[nodiscard]] std::vector<ScreenTab> tabs();
/// The picture of the kind of record that the "new" button makes, by the presenter's word for it ("newco").
[[nodiscard]] QString newPicture(const QString& newImage);
/// Menu entries by their names, each with the name of its picture; the entries that are tools have the
/// button's.
[[nodiscard]] std::vector<std::pair<QString, QString>> menuIcons();

} // namespace workbenchtools
