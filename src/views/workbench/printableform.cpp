#include "views/workbench/printableform.h"

#include "base/form.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

using namespace Qt::StringLiterals;

namespace {

/// One labelled value of the page.
struct Entry
{
    QString label;
    QString value;
    bool isLong = false;
};

QString labelOf(const QWidget& view, const QWidget& widget)
{
    const auto labels = view.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (label->buddy() == &widget)
            return QString(label->text()).remove(u'&');
    }
    return widget.accessibleName();
}

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

QTextCharFormat bold(double size)
{
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    format.setFontPointSize(size);
    return format;
}

QTextCharFormat plain(double size)
{
    QTextCharFormat format;
    format.setFontPointSize(size);
    return format;
}

void addTable(QTextCursor& cursor, const std::vector<Entry>& entries)
{
    QTextTableFormat format;
    format.setBorderStyle(QTextFrameFormat::BorderStyle_None);
    format.setBorder(0);
    format.setCellPadding(3);
    const int rows = static_cast<int>(std::ranges::count(entries, false, &Entry::isLong));
    if (rows == 0)
        return;
    QTextTable* table = cursor.insertTable(rows, 2, format);
    int at = 0;
    for (const Entry& entry : entries) {
        if (entry.isLong)
            continue;
        table->cellAt(at, 0).firstCursorPosition().insertText(entry.label, bold(10));
        table->cellAt(at, 1).firstCursorPosition().insertText(entry.value, plain(10));
        ++at;
    }
    cursor.movePosition(QTextCursor::End);
}

} // namespace

std::unique_ptr<QTextDocument> printableForm(const QWidget& view, const Form& form, const QString& heading)
{
    auto page = std::make_unique<QTextDocument>();
    QTextCursor cursor(page.get());
    QTextBlockFormat gap;
    gap.setTopMargin(12);
    gap.setBottomMargin(4);
    cursor.insertText(heading, bold(18));
    cursor.insertBlock(gap, plain(10));
    const std::vector<Entry> entries = entriesOf(view, form);
    addTable(cursor, entries);
    for (const Entry& entry : entries) {
        if (!entry.isLong)
            continue;
        cursor.insertBlock(gap, bold(12));
        cursor.insertText(entry.label, bold(12));
        cursor.insertBlock(QTextBlockFormat(), plain(10));
        cursor.insertText(entry.value, plain(10));
    }
    return page;
}
