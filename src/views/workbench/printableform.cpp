#include "views/workbench/printableform.h"

#include "base/form.h"
#include "views/common/labels.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

/// One labelled value of the page.
struct Entry
{
    QString label;
    QString value;
    bool isLong = false;
};

std::vector<Entry> entriesOf(const QWidget& view, const Form& form)
{
    std::vector<Entry> entries;
    for (const FieldRow& row : form.rows()) {
        const auto* widget = view.findChild<QWidget*>(row.control);
        const auto* box = qobject_cast<const QAbstractButton*>(widget);
        if (box && !box->isChecked())
            continue; // on paper the ticked boxes say it all
        const QString value =
            box ? QCoreApplication::translate("PrintableForm", "Yes") : form.text(row.control).trimmed();
        if (widget && !value.isEmpty())
            entries.push_back(
                {labelOf(view, *widget), value, qobject_cast<const QPlainTextEdit*>(widget) != nullptr});
    }
    return entries;
}

} // namespace

ReportDocument printableForm(const QWidget& view, const Form& form, const QString& heading)
{
    using Block = ReportPage::Block;
    const std::vector<Entry> entries = entriesOf(view, form);
    ReportPage page;
    page.add(Block::Heading, heading);
    for (const Entry& entry : entries) {
        if (!entry.isLong)
            page.addRow({entry.label, entry.value});
    }
    for (const Entry& entry : entries) {
        if (!entry.isLong)
            continue;
        page.add(Block::Subheading, entry.label);
        page.add(Block::Paragraph, entry.value);
    }
    ReportDocument document;
    document.title = heading;
    document.pages.push_back(std::move(page));
    return document;
}
