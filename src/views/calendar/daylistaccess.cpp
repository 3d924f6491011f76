#include "views/calendar/daylistaccess.h"

#include "views/calendar/daylist.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

/// One event of a day: drawn, not a widget, but an item that can be read and opened.
class ChipAccess final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    ChipAccess(DayList* cell, int index)
        : m_cell(cell)
        , m_index(index)
    {
    }

    [[nodiscard]] bool isValid() const override
    {
        return m_cell && m_index < static_cast<int>(m_cell->chips().size());
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_cell);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QString text(QAccessible::Text what) const override
    {
        if (!isValid())
            return {};
        const DayChip& chip = m_cell->chips()[static_cast<size_t>(m_index)];
        if (what == QAccessible::Name)
            return chip.text;
        return what == QAccessible::Description ? chip.tip : QString();
    }
    [[nodiscard]] QRect rect() const override
    {
        const QRect place = isValid() ? m_cell->chipRect(m_index) : QRect();
        return place.isEmpty() ? QRect() : QRect(m_cell->mapToGlobal(place.topLeft()), place.size());
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = true;
        state.offscreen = isValid() && m_cell->chipRect(m_index).isEmpty();
        state.selected =
            isValid() && m_cell->currentChip() == m_cell->chips()[static_cast<size_t>(m_index)].key;
        state.invalid = !isValid();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction() && isValid())
            emit m_cell->chipOpened(m_cell->chips()[static_cast<size_t>(m_index)].key);
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<DayList> m_cell;
    int m_index;
};

/// A day as a list of its events.
class DayListAccess final : public QAccessibleWidget
{
public:
    explicit DayListAccess(DayList* cell)
        : QAccessibleWidget(cell, QAccessible::List)
        , m_cell(cell)
    {
    }
    ~DayListAccess() override
    {
        for (const QAccessible::Id id : m_items)
            QAccessible::deleteAccessibleInterface(id);
    }
    DayListAccess(const DayListAccess&) = delete;
    DayListAccess& operator=(const DayListAccess&) = delete;

    [[nodiscard]] int childCount() const override { return static_cast<int>(m_cell->chips().size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        while (static_cast<int>(m_items.size()) <= index) {
            auto* item = new ChipAccess(m_cell, static_cast<int>(m_items.size()));
            m_items.push_back(QAccessible::registerAccessibleInterface(item)); // its keeper from now on
        }
        return QAccessible::accessibleInterface(m_items[static_cast<size_t>(index)]);
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* item) const override
    {
        for (int index = 0; index < childCount(); ++index) {
            if (child(index) == item)
                return index;
        }
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        return child(m_cell->chipAt(m_cell->mapFromGlobal(QPoint(x, y))));
    }

private:
    DayList* m_cell;
    mutable std::vector<QAccessible::Id> m_items;
};

QAccessibleInterface* makeAccess(const QString&, QObject* object)
{
    auto* cell = qobject_cast<DayList*>(object);
    return cell ? new DayListAccess(cell) : nullptr;
}

} // namespace

void installDayListAccess()
{
    static const bool once = [] {
        QAccessible::installFactory(makeAccess);
        return true;
    }();
    Q_UNUSED(once)
}
