// One day of the month's grid, with its events as chips.
#pragma once

#include "calendar/monthpage.h"

#include <QWidget>

class ChipLook;
class QMimeData;

/// A list of one day: the day's number, then a chip for each event. Draws them all by itself, since a widget
/// for each event would make a busy month slow. A chip is drawn on two lines where all of the day have room
/// for that, a long name on a third where one is left, else on one; those that find no room at all stand
/// behind "+n more".
class DayList : public QWidget
{
    Q_OBJECT

public:
    /// What a drag carries: the key of an event ("EV7") or a task ("A7") as text.
    static QString mimeType();
    /// The drag's data for a key, for whoever else lets something be dragged onto a day.
    static QMimeData* dragData(const QString& key);

    /// @p look gives the chips their pictures and colours and must outlive the list.
    explicit DayList(const ChipLook& look, QWidget* parent = nullptr);

    /// The day and its events; an invalid date makes it a quiet cell outside the month.
    void setContent(const DayCell& content);
    /// The chip that keys are about; "" for the day itself.
    void setCurrentChip(const QString& key);

    [[nodiscard]] QDate day() const { return m_content.date; }
    [[nodiscard]] const std::vector<DayChip>& chips() const { return m_content.chips; }
    [[nodiscard]] QString currentChip() const { return m_current; }
    [[nodiscard]] bool isSelected() const { return m_content.selected; }
    /// Where chip @p index is drawn; empty while it stands behind "+n more".
    [[nodiscard]] QRect chipRect(int index) const;
    /// Where "+n more" is drawn; empty when every chip has room.
    [[nodiscard]] QRect moreRect() const;
    /// The chip at this place, -1 for none.
    [[nodiscard]] int chipAt(QPoint place) const;

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint() * 2; }

signals:
    void pressed();                              ///< the day itself, beside every chip
    void doubleClicked();                        ///< the same, twice: something new is wanted there
    void chipOpened(const QString& key);         ///< clicked
    void moreWanted();                           ///< those behind "+n more" are wanted
    void menuWanted(QString key, QPoint global); ///< the right button, on a chip or ("") on the day
    void dropped(const QString& key);            ///< an event or a task was put on this day

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Plan
    {
        std::vector<int> lines; ///< of each chip with room

        [[nodiscard]] int shown() const { return static_cast<int>(lines.size()); }
    };
    [[nodiscard]] Plan plan() const;
    [[nodiscard]] int chipHeight(int lines) const;
    [[nodiscard]] int labelHeight() const;
    [[nodiscard]] QString key(int chip) const;
    void describe();
    void startDrag(int chip);
    void setDropTarget(bool target);
    void paintGround(QPainter& painter) const;
    void paintLabel(QPainter& painter) const;
    void paintChip(QPainter& painter, const DayChip& chip, QRect room, int lines) const;
    QRect paintPictures(QPainter& painter, const DayChip& chip, QRect inner, const QString& time) const;
    void paintMore(QPainter& painter) const;

    const ChipLook& m_look;
    DayCell m_content;
    QString m_current;
    bool m_dropTarget = false;
    int m_pressedChip = -1;
    QPoint m_pressedAt;
};
