// The parts of the calendar beside the grid that no other screen has.
#pragma once

#include "views/common/companyselector.h"

#include <QIcon>
#include <QLabel>
#include <QToolButton>
#include <QTreeView>

#include <vector>

/// A button with an arrow; something dragged may rest on it, so that the month turns under the drag.
class TurnButton : public QToolButton
{
    Q_OBJECT

public:
    explicit TurnButton(QWidget* parent = nullptr);

signals:
    void dragOver(bool resting);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent*) override { emit dragOver(false); }
    void dropEvent(QDropEvent*) override { emit dragOver(false); }
};

/// A flat field that opens its few choices, each with picture and words, and shows the one that holds.
class ChoiceButton : public QToolButton
{
    Q_OBJECT

public:
    struct Choice
    {
        QString text;
        QIcon icon;
    };

    explicit ChoiceButton(QWidget* parent = nullptr);

    /// @p header stands above the choices; may be empty. A choice without a text is none, to take back what
    /// is chosen.
    void setChoices(const QString& header, const std::vector<Choice>& choices);
    /// Shows a choice by its text; a text that is no choice has @p picture.
    void showChoice(const QString& text, const QIcon& picture = {});

    /// Shows the picture without its words, which stand in a field beside it.
    void setPictureOnly() { m_pictureOnly = true; }

    [[nodiscard]] QSize sizeHint() const override;

signals:
    void chosen(const QString& text);

private:
    std::vector<Choice> m_choices;
    bool m_pictureOnly = false;
};

/// A selector that keeps a name it does not know, so that nothing typed is lost before it has been told, and
/// that does not open an empty list by itself.
class OwnerSelector : public CompanySelector
{
    Q_OBJECT

public:
    using CompanySelector::CompanySelector;

    void showPopup() override;
    void openList() { CompanySelector::showPopup(); }

signals:
    /// The box is left with a text that names nobody.
    void unknownLeft(const QString& typed);
    /// Its list is wanted, but has nobody in it.
    void emptyOpened();

protected:
    void leaveUnknown(const QString& typed) override;
};

/// The tasks: a left click or Enter opens one, a right click or the Space key flips its state, and one can be
/// dragged onto a day.
class TaskList : public QTreeView
{
    Q_OBJECT

public:
    explicit TaskList(QWidget* parent = nullptr);

    /// What stands in the list while it is empty.
    void setHint(const QString& hint) { m_hint = hint; }

signals:
    void opened(const QString& key);
    void flipped(const QString& key);
    void monthWanted(int step); ///< so many months on or back
    void removeWanted(const QString& key);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString keyAt(QPoint place) const;

    QString m_hint;
    QString m_pressedKey;
    QPoint m_pressedAt;
};

/// One line of words of which as many are shown as there is room for; the tool tip has all.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
