#include "views/output/reporttext.h"

#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar breakHere(0x200B); // a blank without width

} // namespace

ReportText::ReportText(QWidget* parent)
    : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    QFont wanted = font();
    wanted.setFamilies({u"Verdana"_s, u"DejaVu Sans"_s, u"sans-serif"_s});
    setFont(wanted);
}

void ReportText::setReport(const QString& text)
{
    QString shown = text;
    setPlainText(shown.replace(u':', u':' + QString(breakHere)));
}

QMimeData* ReportText::createMimeDataFromSelection() const
{
    QMimeData* clip = QPlainTextEdit::createMimeDataFromSelection();
    clip->setText(clip->text().remove(breakHere));
    return clip;
}
