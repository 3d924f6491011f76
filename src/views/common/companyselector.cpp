#include "views/common/companyselector.h"

#include "base/text.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QSignalBlocker>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int shownMatches = 14;

/// Completes a typed name as the store holds it, which knows no apostrophes.
class NameCompleter : public QCompleter
{
public:
    using QCompleter::QCompleter;

    [[nodiscard]] QStringList splitPath(const QString& typed) const override
    {
        return {text::quoteFix(typed)};
    }
};

/// A list that asks one row for its height and believes it for all; measuring fifteen thousand names takes
/// seconds.
QListView* quickList(QWidget* parent)
{
    auto* list = new QListView(parent);
    list->setUniformItemSizes(true);
    list->setLayoutMode(QListView::SinglePass);
    return list;
}

bool hasWordBeginningWith(const QString& name, const QString& typed)
{
    for (qsizetype at = name.indexOf(typed, 0, Qt::CaseInsensitive); at >= 0;
         at = name.indexOf(typed, at + 1, Qt::CaseInsensitive)) {
        if (at == 0 || !name.at(at - 1).isLetterOrNumber())
            return true;
    }
    return false;
}

/// How well a name fits a typed text: 0 best, 4 not at all.
int distance(const QString& name, const QString& typed)
{
    if (name.compare(typed, Qt::CaseInsensitive) == 0)
        return 0;
    if (name.startsWith(typed, Qt::CaseInsensitive))
        return 1;
    if (hasWordBeginningWith(name, typed))
        return 2;
    return name.contains(typed, Qt::CaseInsensitive) ? 3 : 4;
}

} // namespace

CompanySelector::CompanySelector(QWidget* parent)
    : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    // Any other policy would measure every name of the list.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(32);
    setMaxVisibleItems(shownMatches);
    setView(quickList(this));
    setModel(&m_names);

    m_completer = new NameCompleter(&m_names, this);
    m_completer->setPopup(quickList(nullptr));
    m_completer->setFilterMode(Qt::MatchContains);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setMaxVisibleItems(shownMatches);
    setCompleter(m_completer);

    // After the completer's own filter, so that it is asked first.
    m_completer->popup()->installEventFilter(this);

    // The box's own reading of what is typed would choose a second time, whenever its row no longer fits its
    // text: Enter and leaving the box are settled here.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    connect(this, &QComboBox::textActivated, this, &CompanySelector::take);
    connect(lineEdit(), &QLineEdit::textEdited, this, &CompanySelector::typing);
}

void CompanySelector::setCompanies(const QStringList& names)
{
    const QString typed = currentText();
    const QSignalBlocker quiet(this);
    m_names.setStringList(names);
    // What is being typed survives a list that is filled anew under the user's hands.
    setEditText(typed);
    // A long name is known by its beginning.
    if (!lineEdit()->hasFocus())
        lineEdit()->setCursorPosition(0);
}

void CompanySelector::showChosen(const QString& name)
{
    m_chosen = name;
    const QSignalBlocker quiet(this);
    setCurrentIndex(name.isEmpty() ? -1 : findText(name, Qt::MatchFixedString));
    setEditText(name);
    lineEdit()->setCursorPosition(0);
}

QString CompanySelector::bestMatch(const QString& typed) const
{
    const QString wanted = text::quoteFix(typed.trimmed());
    if (wanted.isEmpty())
        return {};
    QString best;
    int bestDistance = 4;
    const QStringList names = companies();
    for (const QString& name : names) {
        const int now = distance(name, wanted);
        if (now < bestDistance) {
            bestDistance = now;
            best = name;
        }
    }
    return best;
}

void CompanySelector::take(const QString& name)
{
    m_chosen = name;
    emit typing();
    emit chosen(name);
}

void CompanySelector::takeTyped()
{
    const QString typed = currentText();
    const QString name = bestMatch(typed);
    if (name.isEmpty()) {
        if (!typed.trimmed().isEmpty())
            emit nothingFound(typed.trimmed());
        return;
    }
    m_completer->popup()->hide();
    setEditText(name);
    lineEdit()->selectAll();
    take(name);
}

void CompanySelector::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        takeTyped();
        event->accept();
        return;
    case Qt::Key_Escape:
        showChosen(m_chosen);
        lineEdit()->selectAll();
        emit typing();
        event->accept();
        return;
    default:
        QComboBox::keyPressEvent(event);
    }
}

bool CompanySelector::eventFilter(QObject* watched, QEvent* event)
{
    // With no row picked in the list of matches, the completer would only close it.
    if (watched == m_completer->popup() && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) &&
            !m_completer->popup()->currentIndex().isValid()) {
            takeTyped();
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void CompanySelector::wheelEvent(QWheelEvent* event)
{
    // Turning the wheel over the box must not leave the company that is being edited.
    event->ignore();
}

void CompanySelector::focusInEvent(QFocusEvent* event)
{
    QComboBox::focusInEvent(event);
    // The next key begins a search instead of writing into the name shown.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        lineEdit()->selectAll();
}

void CompanySelector::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason &&
        event->reason() != Qt::MenuBarFocusReason)
        settle();
}

void CompanySelector::settle()
{
    const QString typed = text::quoteFix(currentText().trimmed());
    emit typing();
    if (typed.compare(m_chosen, Qt::CaseInsensitive) == 0) {
        showChosen(m_chosen);
        return;
    }
    const QString name = bestMatch(typed);
    if (!name.isEmpty() && name.compare(typed, Qt::CaseInsensitive) == 0)
        take(name);
    else
        leaveUnknown(typed);
}
