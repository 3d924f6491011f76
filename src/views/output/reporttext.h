// The text of a report on the screen.
#pragma once

#include <QPlainTextEdit>

/// A text to read, in the report's own font. Lines break at blanks and behind colons, which are no break for
/// Qt; what is copied is the text as it is.
class ReportText : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ReportText(QWidget* parent = nullptr);

    void setReport(const QString& text);

protected:
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
};
