#include "views/workbench/pipelinewidgets.h"

#include "base/dates.h"
#include "views/common/icons.h"

#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>

using namespace Qt::StringLiterals;

// Outside of any namespace, as the resource compiler's symbol is.
static void loadMediumPictures()
{
    Q_INIT_RESOURCE(mediums);
}

StepDateEdit::StepDateEdit(QWidget* parent)
    : QDateEdit(dates::sentinel, parent)
{
    setCalendarPopup(true);
    setMinimumDate(dates::sentinel);
    setSpecialValueText(u" "_s);
    // Half a typed date is no day on which anything was done.
    setKeyboardTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    QString format = locale().dateFormat(QLocale::ShortFormat);
    if (!format.contains("yyyy"_L1))
        format.replace(u"yy"_s, u"yyyy"_s);
    setDisplayFormat(format);
}

void StepDateEdit::mousePressEvent(QMouseEvent* event)
{
    QStyleOptionComboBox box;
    box.initFrom(this);
    box.editable = true;
    box.frame = hasFrame();
    const auto part =
        style()->hitTestComplexControl(QStyle::CC_ComboBox, &box, event->position().toPoint(), this);
    if (event->button() == Qt::LeftButton && part == QStyle::SC_ComboBoxArrow)
        emit dropDown();
    QDateEdit::mousePressEvent(event);
}

void StepDateEdit::keyPressEvent(QKeyEvent* event)
{
    const bool digit = event->text().size() == 1 && event->text().front().isDigit();
    const bool begins = digit || event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (begins && date() == minimumDate()) {
        emit dropDown();
        setSelectedSection(sectionAt(0));
        if (!digit) {
            event->accept();
            return;
        }
    }
    QDateEdit::keyPressEvent(event);
}

BarLabel::BarLabel(QWidget* parent)
    : QToolButton(parent)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void BarLabel::paintEvent(QPaintEvent*)
{
    // A style centres a tool button's text; this one stands flush above its bar.
    QStylePainter painter(this);
    QStyleOptionToolButton button;
    initStyleOption(&button);
    button.text.clear();
    painter.drawComplexControl(QStyle::CC_ToolButton, button);
    const int inset = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this) + 1;
    const QRect room = rect().adjusted(inset, 0, -inset, 0);
    painter.drawItemText(room, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                         fontMetrics().elidedText(text(), Qt::ElideRight, room.width()), foregroundRole());
}

namespace mediums {

QIcon picture(const QString& tag)
{
    loadMediumPictures();
    const QString file = u":/jobwright/mediums/%1.svg"_s.arg(tag.isEmpty() ? u"none"_s : tag.toLower());
    return QFile::exists(file) ? icons::inPaletteInk(QIcon(file)) : QIcon();
}

} // namespace mediums
