#include "desktop/desktopprompts.h"

#include "desktop/companypicker.h"

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

/// A text beyond these limits would make a box that does not fit on a small screen.
constexpr qsizetype mostCharacters = 700;
constexpr qsizetype mostLines = 14;

bool isTooLong(const QString& text)
{
    return text.size() > mostCharacters || text.count(u'\n') >= mostLines;
}

/// Its first lines; the box keeps the whole below, where it can be scrolled and copied.
QString beginningOf(const QString& text)
{
    const QString lines = text.section(u'\n', 0, 3);
    return (lines.size() > mostCharacters / 2 ? lines.left(mostCharacters / 2) : lines) + u'…';
}

struct Choice
{
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton byDefault;
    QMessageBox::StandardButton onEscape;
    QMessageBox::Icon icon;
};

Choice choiceOf(Buttons buttons)
{
    switch (buttons) {
    case Buttons::YesNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No, QMessageBox::Question};
    case Buttons::YesNoDefaultNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No, QMessageBox::No, QMessageBox::Warning};
    case Buttons::YesNoCancel:
        return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
                QMessageBox::Cancel, QMessageBox::Question};
    case Buttons::Ok:
        break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Information};
}

/// A short text alone would make a box too narrow for its own title.
void widenForTitle(QMessageBox& box)
{
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!grid)
        return;
    const int frame = 10 * box.fontMetrics().height(); // the buttons that a desktop puts there
    grid->addItem(new QSpacerItem(box.fontMetrics().horizontalAdvance(box.windowTitle()) + frame, 0),
                  grid->rowCount(), 0, 1, grid->columnCount());
}

Answer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

} // namespace

Answer DesktopPrompts::msgBox(const QString& text, Buttons buttons, const QString& title)
{
    const Choice choice = choiceOf(buttons);
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(u"msgBox"_s);
    box.setTextFormat(Qt::PlainText);
    box.setIcon(choice.icon);
    box.setWindowTitle(title);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setText(isTooLong(text) ? beginningOf(text) : text);
    if (isTooLong(text))
        box.setDetailedText(text);
    box.setStandardButtons(choice.buttons);
    box.setDefaultButton(choice.byDefault);
    box.setEscapeButton(choice.onEscape);
    widenForTitle(box);
    return answerOf(box.exec());
}

QString DesktopPrompts::openFile(const QString& title, const QString& folder, const QStringList& filters)
{
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), title, folder, filters.join(u";;"_s));
}

QString DesktopPrompts::saveFile(const QString& title, const QString& suggested, const QStringList& filters)
{
    return QFileDialog::getSaveFileName(QApplication::activeWindow(), title, suggested,
                                        filters.join(u";;"_s));
}

QString DesktopPrompts::pickFolder(const QString& title, const QString& folder)
{
    return QFileDialog::getExistingDirectory(QApplication::activeWindow(), title, folder);
}

QString DesktopPrompts::pickCompany(const QString& title, const QStringList& companies)
{
    CompanyPicker picker(title, companies, QApplication::activeWindow());
    return picker.exec() == QDialog::Accepted ? picker.picked() : QString();
}
