// The month as a grid of days.
#pragma once

#include "views/calendar/chiplook.h"
#include "views/calendar/daylist.h"

#include <array>

class QGridLayout;
class QLabel;

/// 37 days, seven to a row, Sunday first, which is as many as the longest month with the latest start needs;
/// the sixth row is there only for months that reach into it. The keys walk days; what they and the mouse
/// want is told by signals, and shown when the owner sets it.
class MonthGrid : public QWidget
{
    Q_OBJECT

public:
    using Days = std::array<DayCell, MonthPage::cellCount>;

    explicit MonthGrid(QWidget* parent = nullptr);

    /// Shows a month, with the chip on its selected day that the keys are about ("" for the day itself). The
    /// keyboard stays with the selected day when it was in the grid.
    void setDays(const Days& days, const QString& chip);
    /// Puts the keyboard on the chosen day.
    void focusChosen();
    /// Offers all entries of the chosen day in a menu.
    void showChosen();

signals:
    void dayWanted(QDate day);            ///< chosen by key or click; may lie in another month
    void chipWanted(const QString& key);  ///< the keys went to this chip of the chosen day, "" for the day
    void opened(const QString& key);      ///< a chip to be edited
    void openWanted(const QString& chip); ///< the chosen day by key, with the chip that the keys are about
    void newWanted();                     ///< something new on the chosen day
    void removeWanted(const QString& key);
    void monthWanted(int step); ///< so many months on or back
    void todayWanted();
    void dropped(const QString& key, QDate day);

protected:
    /// The days let their keys pass up to here.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildDay(int index);
    void labelDays();
    [[nodiscard]] DayList* dayOf(QDate date);
    [[nodiscard]] bool holdsFocus() const;
    bool walk(int key, Qt::KeyboardModifiers modifiers);
    bool act(int key, Qt::KeyboardModifiers modifiers);
    void walkChips(DayList& day, int step);
    void showAll(DayList& day);
    void showMenu(const QString& key, QPoint global);

    ChipLook m_look;
    QGridLayout* m_layout;
    std::array<DayList*, MonthPage::cellCount> m_days{};
    std::array<QLabel*, 7> m_headings{};
    QDate m_first;
    QDate m_chosen;
};
