// The box for texts of several lines.
#pragma once

#include <QMimeData>
#include <QPlainTextEdit>

/// A text box that can be pasted into whatever the clipboard holds. When no program owns the clipboard the
/// desktop hands out data that has no format at all, and Qt 6.4 reads the first one of them: the program
/// would end in the middle of a note. All ways in come by here: keys, menu, middle button, drops.
class TextBox : public QPlainTextEdit
{
    Q_OBJECT

public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    void insertFromMimeData(const QMimeData* source) override
    {
        if (source && !source->formats().isEmpty())
            QPlainTextEdit::insertFromMimeData(source);
    }
};
